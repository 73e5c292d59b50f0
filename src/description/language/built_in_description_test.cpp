#include "description/language/built_in_description.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "description/language/param_index.h"
#include "description/language/parse_description.h"

namespace quiltor {
namespace {

using testing::ElementsAre;

const Description& builtIn() {
  static const Description description = parseDescription(builtInDescription());
  return description;
}

const ParamRecord& param(Param::Index index) { return builtIn().params[static_cast<size_t>(index)]; }

TEST(BuiltInDescription, HasSixteenParametersAndOneLayerBesidesTheInput) {
  EXPECT_EQ(builtIn().paramCount, 16);
  EXPECT_EQ(builtIn().paramCount, Param::count);
  EXPECT_EQ(builtIn().layerCount, 1);
}

TEST(BuiltInDescription, EveryNamedIndexIsThePlaceOfThatNameInTheText) {
  const std::pair<Param::Index, std::string> names[] = {
      {Param::in0, "in0"},
      {Param::source, "source"},
      {Param::patsrc, "patsrc"},
      {Param::txtsrc, "txtsrc"},
      {Param::lock, "lock"},
      {Param::tilemode, "tilemode"},
      {Param::blendmode, "blendmode"},
      {Param::opacity, "opacity"},
      {Param::scale, "scale"},
      {Param::offset, "offset"},
      {Param::rotation, "rotation"},
      {Param::invert, "invert"},
      {Param::tintcolor, "tintcolor"},
      {Param::tintopacity, "tintopacity"},
      {Param::blur, "blur"},
      {Param::mask, "mask"},
  };
  static_assert(std::size(names) == Param::count);
  for (const auto& [index, name] : names) EXPECT_EQ(param(index).paramName, name);
}

TEST(BuiltInDescription, ShowsTheNamesOfItsParameters) {
  const std::string shown[] = {"Source",       "Source",       "Pattern Layer", "Pattern",
                               "Lock Pattern", "Tile Mode",    "Blend Mode",    "Opacity",
                               "Scale",        "Offset",       "Rotation",      "Invert Pattern Colors",
                               "Tint Color",   "Tint Opacity", "Blur",          "Mask"};
  static_assert(std::size(shown) == Param::count);
  for (size_t i = 0; i < Param::count; ++i) EXPECT_EQ(builtIn().params[i].displayName, shown[i]) << i;
}

TEST(BuiltInDescription, GivesTheParametersTheirKinds) {
  const ParamKind kinds[] = {ParamKind::Layer, ParamKind::Popup, ParamKind::Layer, ParamKind::Custom,
                             ParamKind::Check, ParamKind::Popup, ParamKind::Popup, ParamKind::Float,
                             ParamKind::Float, ParamKind::Point, ParamKind::Angle, ParamKind::Check,
                             ParamKind::Color, ParamKind::Float, ParamKind::Float, ParamKind::Popup};
  static_assert(std::size(kinds) == Param::count);
  for (size_t i = 0; i < Param::count; ++i) EXPECT_EQ(builtIn().params[i].kind, kinds[i]) << i;
}

TEST(BuiltInDescription, SourceChoosesALayerOrAFileAndSwitchesGroup112) {
  EXPECT_THAT(param(Param::source).popupItems, ElementsAre("Layer", "File"));
  EXPECT_EQ(param(Param::source).maximum, 1);
  EXPECT_EQ(param(Param::source).defaultValue[0], 1);
  EXPECT_EQ(param(Param::source).groups[0], -112);
  EXPECT_EQ(param(Param::patsrc).groups[0], 112);
  EXPECT_EQ(param(Param::patsrc).visibility, 2);
  EXPECT_EQ(param(Param::txtsrc).groups[0], 113);
  EXPECT_EQ(param(Param::txtsrc).visibility, 0);
}

TEST(BuiltInDescription, HasThreeTileModesAndTilesByDefault) {
  EXPECT_THAT(param(Param::tilemode).popupItems, ElementsAre("Single", "Tiled", "Mirrored"));
  EXPECT_EQ(param(Param::tilemode).defaultValue[0], 1);
}

TEST(BuiltInDescription, Has27BlendModesFromNormalToPhoenix) {
  EXPECT_THAT(param(Param::blendmode).popupItems,
              ElementsAre("Normal", "Stencil Alpha", "Stencil Luma", "Silhouette Alpha", "Silhouette Luma", "Lighten",
                          "Darken", "Multiply", "Average", "Difference", "Negation", "Exclusion", "Screen", "Overlay",
                          "Soft Light", "Hard Light", "Color Dodge", "Color Burn", "Linear Dodge", "Linear Burn",
                          "Linear Light", "Vivid Light", "Pin Light", "Hard Mix", "Reflect", "Glow", "Phoenix"));
  EXPECT_EQ(param(Param::blendmode).maximum, 26);
  EXPECT_EQ(param(Param::blendmode).defaultValue[0], 0);
}

void expectSlider(Param::Index index, float minimum, float maximum, float value) {
  EXPECT_EQ(param(index).minimum, minimum);
  EXPECT_EQ(param(index).maximum, maximum);
  EXPECT_EQ(param(index).displayMinimum, minimum);
  EXPECT_EQ(param(index).displayMaximum, maximum);
  EXPECT_EQ(param(index).defaultValue[0], value);
  EXPECT_EQ(param(index).flags, 1);
}

TEST(BuiltInDescription, OpacityAndScaleStartAtOneHundredPercent) {
  expectSlider(Param::opacity, 0, 100, 100);
  expectSlider(Param::scale, 1, 500, 100);
}

TEST(BuiltInDescription, TintOpacityAndBlurGoTo100AndStartAtZero) {
  expectSlider(Param::tintopacity, 0, 100, 0);
  expectSlider(Param::blur, 0, 100, 0);
}

TEST(BuiltInDescription, OffsetTintAndMaskKeepTheNumbersOfTheText) {
  EXPECT_THAT(param(Param::offset).defaultValue, ElementsAre(0.5F, 0.5F, 0, 0));
  EXPECT_THAT(param(Param::tintcolor).defaultValue, ElementsAre(73, 188, 56, 0));
  EXPECT_EQ(param(Param::mask).flags, 99);
  EXPECT_THAT(param(Param::mask).popupItems, testing::IsEmpty());
}

TEST(BuiltInDescription, ParametersHaveTheIdsOfTheirIndices) {
  for (int32_t i = 1; i < Param::count; ++i) EXPECT_EQ(builtIn().params[static_cast<size_t>(i)].id, i);
}

TEST(BuiltInDescription, IndentsEveryLineOfASectionByOneBlankAndEndsItsLastLine) {
  std::string_view text = builtInDescription();
  int sections = 0;
  while (!text.empty()) {
    const size_t end = text.find('\n');
    ASSERT_NE(end, std::string_view::npos) << "the last line has no end";
    const std::string_view line = text.substr(0, end);
    text.remove_prefix(end + 1);
    if (line == "[par]") {
      ++sections;
    } else {
      ASSERT_GE(line.size(), 2U);
      EXPECT_EQ(line.find_first_not_of(' '), 1U) << line;
    }
  }
  EXPECT_EQ(sections, 16);
}

TEST(BuiltInDescription, KeepsTheLinesThatOthersRelyOn) {
  EXPECT_NE(builtInDescription().find("\n default=0.5|0.5 \n"), std::string_view::npos);
  EXPECT_NE(builtInDescription().find("\n display=Blur\n flags=1\n min=0\n max=100 default=0\n"),
            std::string_view::npos);
  EXPECT_NE(builtInDescription().find("\n GroupSwitch=112\n default=1\n[par]\n"), std::string_view::npos);
}

}  // namespace
}  // namespace quiltor
