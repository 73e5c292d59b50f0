#include "render/param_values.h"

#include <gtest/gtest.h>

namespace quiltor {
namespace {

ParamRecord layer(float n, float m) {
  ParamRecord record;
  record.kind = ParamKind::Layer;
  record.defaultValue = {n, m, 0, 0};
  return record;
}

PF_InData at(A_long time, A_long step) {
  PF_InData in{};
  in.current_time = time;
  in.time_step = step;
  return in;
}

A_long timeOf(float n, float m, const PF_InData& in, int32_t frameStep = 0, int32_t shift = 0) {
  return layerCheckoutTime(layer(n, m), shift, in, frameStep);
}

TEST(LayerCheckoutTime, IsNowForALayerWithoutDefaults) { EXPECT_EQ(timeOf(0, 0, at(700, 100)), 700); }

TEST(LayerCheckoutTime, CountsFrameStepsFromNowInRelativeMode) {
  EXPECT_EQ(timeOf(-2, 0, at(700, 100)), 500);
  EXPECT_EQ(timeOf(2, 0, at(700, 100), 3), 1500);
}

TEST(LayerCheckoutTime, IsThatFrameInAbsoluteMode) { EXPECT_EQ(timeOf(4, 1, at(700, 100)), 400); }

TEST(LayerCheckoutTime, IsNeverNegative) { EXPECT_EQ(timeOf(-2, 1, at(700, 100)), 0); }

TEST(LayerCheckoutTime, HoldsEveryNthFrame) {
  EXPECT_EQ(timeOf(3, 2, at(1000, 100)), 900);
  EXPECT_EQ(timeOf(3, 2, at(800, 100)), 600);
  EXPECT_EQ(timeOf(1, 2, at(1000, 100)), 1000);
  EXPECT_EQ(timeOf(0, 2, at(1000, 100)), 0);
  EXPECT_EQ(timeOf(-5, 2, at(1000, 100)), 0);
}

TEST(LayerCheckoutTime, AddsTheShiftBeforeTheFractionIsCut) {
  EXPECT_EQ(timeOf(-0.5f, 1, at(0, 100), 0, 3), 200);
  EXPECT_EQ(timeOf(1.75f, 1, at(0, 100)), 100);
}

TEST(LayerCheckoutTime, SurvivesAStepOfZeroAndHugeNumbers) {
  EXPECT_EQ(timeOf(3, 2, at(1000, 0)), 0);
  EXPECT_EQ(timeOf(3e9f, 1, at(0, 1000000)), 0x7FFFFFFF);
}

ParamRecord parameter(ParamKind kind, int32_t special = 0) {
  ParamRecord record;
  record.kind = kind;
  record.special = special;
  record.popupItems = {"12", "24", "x"};
  return record;
}

PF_ParamDef item(A_long place) {
  PF_ParamDef value{};
  value.u.pd.value = place;
  return value;
}

PF_ParamDef number(double n) {
  PF_ParamDef value{};
  value.u.fs_d.value = n;
  return value;
}

TEST(Slots, HoldScalarsLastAndCountMenusFromZero) {
  EXPECT_EQ(slotOf(parameter(ParamKind::Popup), item(3)).words, (std::array<float, 4>{0, 0, 0, 2}));
  EXPECT_EQ(slotOf(parameter(ParamKind::Float), number(2.5)).words, (std::array<float, 4>{0, 0, 0, 2.5f}));
  EXPECT_EQ(slotOf(parameter(ParamKind::Int), number(7)).scalar(), 7);
}

TEST(Slots, HoldTheWholePartOfFixedPointNumbersBelowZeroToo) {
  PF_ParamDef value{};
  value.u.td.x_value = (5 << 16) | 0xFFFF;
  value.u.td.y_value = -1;
  EXPECT_EQ(slotOf(parameter(ParamKind::Point), value).words, (std::array<float, 4>{0, 0, 5, -1}));
  value = {};
  value.u.ad.value = -(90 << 16) - 1;
  EXPECT_EQ(slotOf(parameter(ParamKind::Angle), value).scalar(), -91);
}

TEST(Slots, HoldColoursAsFractionsWithoutAlpha) {
  PF_ParamDef value{};
  value.u.cd.value = {.alpha = 7, .red = 255, .green = 73, .blue = 0};
  EXPECT_EQ(slotOf(parameter(ParamKind::Color), value).words, (std::array<float, 4>{0, 1, 73 * 0.003921569f, 0}));
}

TEST(Slots, HoldAMaskChooserWithoutMaskAsMinusOne) {
  ParamRecord chooser = parameter(ParamKind::Popup);
  chooser.flags = 99;
  PF_ParamDef value{};
  EXPECT_EQ(slotOf(chooser, value).scalar(), -1);
  value.u.path_d.path_id = 4;
  EXPECT_EQ(slotOf(chooser, value).scalar(), 3);
}

TEST(SpecialValues, WithAPositiveCodeAreTheNumberThatTheItemShows) {
  SpecialWords words;
  routeSpecialValue(parameter(ParamKind::Popup, 994), item(2), words);
  EXPECT_EQ(words.frameStep, 24);
  routeSpecialValue(parameter(ParamKind::Popup, 903), item(1), words);
  EXPECT_EQ(words.ints[3], 12);
  routeSpecialValue(parameter(ParamKind::Popup, 900), item(3), words);
  EXPECT_EQ(words.ints[0], 0);
}

TEST(SpecialValues, WithANegativeCodeAreTheItemsPlace) {
  SpecialWords words;
  routeSpecialValue(parameter(ParamKind::Popup, -994), item(2), words);
  EXPECT_EQ(words.frameStep, 1);
  routeSpecialValue(parameter(ParamKind::Popup, -909), item(3), words);
  EXPECT_EQ(words.ints[9], 2);
}

TEST(SpecialValues, BeyondTheMenuReadAsZero) {
  SpecialWords words{.frameStep = 5, .ints = {6}};
  routeSpecialValue(parameter(ParamKind::Popup, 994), item(9), words);
  EXPECT_EQ(words.frameStep, 0);
  routeSpecialValue(parameter(ParamKind::Popup, 900), item(9), words);
  EXPECT_EQ(words.ints[0], 0);
}

TEST(SpecialValues, OfSlidersAreRoundedDown) {
  SpecialWords words;
  routeSpecialValue(parameter(ParamKind::Float, 901), number(-2.5), words);
  EXPECT_EQ(words.ints[1], -3);
  routeSpecialValue(parameter(ParamKind::Float, -994), number(4.9), words);
  EXPECT_EQ(words.frameStep, 4);
}

TEST(SpecialValues, OfOtherCodesGoNowhere) {
  SpecialWords words;
  for (const int32_t code : {0, 1, 899, 910, 993, 995, -910}) {
    routeSpecialValue(parameter(ParamKind::Float, code), number(7), words);
  }
  EXPECT_EQ(words.frameStep, 0);
  EXPECT_EQ(words.ints, (std::array<int32_t, 10>{}));
}

}  // namespace
}  // namespace quiltor
