#include <gtest/gtest.h>

#include "description/language/param_index.h"
#include "tests/support/flat_sequence.h"
#include "tests/support/instance_test.h"

namespace quiltor {
namespace {

using standalone::CallResult;
using standalone::HostCall;
using standalone::PanelEntry;
using testing_support::flatSequence;
using testing_support::InstanceTest;
using testing_support::liveRecordOf;

constexpr int kLayer = 1;  // the items of Source
constexpr int kFile = 2;

class ParamsUi : public InstanceTest {
 protected:
  explicit ParamsUi(A_AppID appId = kAppId_AfterEffects) : InstanceTest(appId) {}
  void SetUp() override { ASSERT_EQ(instance.setUp().code, 0); }

  // As the user does it.
  void choose(int source) {
    instance.setChoice(Param::source, source);
    ASSERT_EQ(instance.changedByUser(Param::source).code, 0);
  }

  int32_t stored(int index) const { return liveRecordOf(instance).visibility[index]; }

  void expectShown(int shown, int hidden) {
    EXPECT_FALSE(instance.shown(shown).hidden());
    EXPECT_TRUE(instance.shown(hidden).hidden());
    expectStored(shown, hidden);
  }
  void expectStored(int shown, int hidden) {
    EXPECT_EQ(stored(shown), -2);
    EXPECT_EQ(stored(hidden), 2);
  }
};

class VideoEditorParamsUi : public ParamsUi {
 protected:
  VideoEditorParamsUi() : ParamsUi(kAppId_PremierePro) {}
};

TEST_F(ParamsUi, SourceShowsThePatternLayerOrThePattern) {
  choose(kLayer);
  expectShown(Param::patsrc, Param::txtsrc);
  choose(kFile);
  expectShown(Param::txtsrc, Param::patsrc);
  choose(kLayer);
  expectShown(Param::patsrc, Param::txtsrc);
}

TEST_F(VideoEditorParamsUi, SourceShowsThePatternLayerOrThePattern) {
  choose(kLayer);
  expectShown(Param::patsrc, Param::txtsrc);
  choose(kFile);
  expectShown(Param::txtsrc, Param::patsrc);
  EXPECT_FALSE(instance.shown(Param::txtsrc).streamHidden);
}

TEST_F(ParamsUi, TheFirstRefreshShowsWhatWasRegistered) {
  EXPECT_EQ(stored(Param::patsrc), 2);
  EXPECT_EQ(stored(Param::txtsrc), 0);
  ASSERT_EQ(instance.updateUi().code, 0);
  expectShown(Param::txtsrc, Param::patsrc);
}

TEST_F(ParamsUi, BothSelectorsDoTheSame) {
  instance.setChoice(Param::source, kLayer);
  ASSERT_EQ(instance.userChanged(Param::source).code, 0);
  expectShown(Param::patsrc, Param::txtsrc);
  instance.setChoice(Param::source, kFile);
  ASSERT_EQ(instance.updateUi().code, 0);
  expectShown(Param::txtsrc, Param::patsrc);
}

TEST_F(ParamsUi, AChangeOfAnotherParameterKeepsTheStates) {
  choose(kLayer);
  instance.setChecked(Param::lock, true);
  ASSERT_EQ(instance.changedByUser(Param::lock).code, 0);
  expectShown(Param::patsrc, Param::txtsrc);
}

TEST_F(ParamsUi, WhatNoSwitchGovernsIsNeverTouched) {
  choose(kLayer);
  choose(kFile);
  for (int index = 1; index < Param::count; ++index) {
    if (index == Param::patsrc || index == Param::txtsrc) continue;
    const PanelEntry& entry = instance.shown(index);
    EXPECT_FALSE(entry.updated.has_value()) << entry.name;
    EXPECT_FALSE(entry.hidden()) << entry.name;
    EXPECT_EQ(entry.name, effect.parameters()[static_cast<size_t>(index)].name);
    EXPECT_EQ(stored(index), 0) << entry.name;
  }
}

// In the compositing host the stream hides. What was registered invisible needs its flag cleared once, too.
TEST_F(ParamsUi, OnlyWhatWasRegisteredInvisibleGetsANewDefinition) {
  choose(kFile);
  EXPECT_FALSE(instance.shown(Param::patsrc).updated.has_value());
  EXPECT_EQ(instance.shown(Param::patsrc).uiFlags, PF_PUI_INVISIBLE);
  choose(kLayer);
  EXPECT_EQ(instance.shown(Param::patsrc).uiFlags, 0);
  EXPECT_TRUE(instance.shown(Param::txtsrc).streamHidden);
  EXPECT_FALSE(instance.shown(Param::txtsrc).updated.has_value());
}

TEST_F(VideoEditorParamsUi, ADefinitionDiffersInItsFlagsAlone) {
  choose(kLayer);
  const PF_ParamDef& given = instance.shown(Param::txtsrc).updated.value();
  const PF_ParamDef& registered = effect.parameters()[Param::txtsrc].definition;
  EXPECT_EQ(given.ui_flags, registered.ui_flags | PF_PUI_INVISIBLE);
  EXPECT_EQ(given.param_type, registered.param_type);
  EXPECT_STREQ(given.name, registered.name);
  EXPECT_EQ(given.ui_width, 50);
}

TEST_F(ParamsUi, TheStatesTravelWithTheProject) {
  choose(kLayer);
  const auto flat = flatCopy();
  std::array<int32_t, 256> visibility{};
  visibility[Param::patsrc] = -2;
  visibility[Param::txtsrc] = 2;
  EXPECT_EQ(flat, flatSequence({}, visibility));
}

// A project that was saved with one state opens in a panel with another: the refresh makes them agree.
TEST_F(ParamsUi, ARefreshMendsAStateThatIsNotTheHosts) {
  std::array<int32_t, 256> visibility{};
  visibility[Param::patsrc] = -2;
  visibility[Param::txtsrc] = 2;
  instance.resetupFrom(flatSequence({}, visibility));
  ASSERT_EQ(instance.updateUi().code, 0);
  expectShown(Param::txtsrc, Param::patsrc);
}

TEST_F(ParamsUi, AnInstanceWithoutDataIsShownAllTheSame) {
  standalone::Instance bare(effect);
  bare.setChoice(Param::source, kLayer);
  EXPECT_EQ(bare.updateUi().code, 0);
  EXPECT_FALSE(bare.shown(Param::patsrc).hidden());
  EXPECT_TRUE(bare.shown(Param::txtsrc).hidden());
}

TEST_F(ParamsUi, SoIsAnInstanceWithFlatData) {
  instance.flatten();
  const auto before = instance.sequenceBytes();
  instance.setChoice(Param::source, kLayer);
  EXPECT_EQ(instance.updateUi().code, 0);
  EXPECT_TRUE(instance.shown(Param::txtsrc).hidden());
  EXPECT_EQ(instance.sequenceBytes(), before);
  instance.resetup();
}

TEST_F(ParamsUi, WithoutValuesIs516) {
  EXPECT_EQ(instance.call({.selector = PF_Cmd_UPDATE_PARAMS_UI}).code, 516);
  EXPECT_EQ(instance.call({.selector = PF_Cmd_USER_CHANGED_PARAM}).code, 516);
}

TEST_F(ParamsUi, ValuesThatAreMissingAreLeftAlone) {
  PF_ParamDef* nothing[Param::count] = {};
  EXPECT_EQ(instance.call({.selector = PF_Cmd_UPDATE_PARAMS_UI, .params = nothing}).code, 0);
}

class WithoutASuite : public ParamsUi, public testing::WithParamInterface<const char*> {};

TEST_P(WithoutASuite, TheStateIsStoredAndTheHostIsLeftAlone) {
  for (const int version : {1, 2, 7}) host.options().suitesNotOffered.insert({GetParam(), version});
  choose(kLayer);
  expectStored(Param::patsrc, Param::txtsrc);
  EXPECT_FALSE(instance.shown(Param::txtsrc).hidden());
  EXPECT_EQ(host.findings().text(), "");
}

INSTANTIATE_TEST_SUITE_P(OfTheProject, WithoutASuite,
                         testing::Values("AEGP PF Interface Suite", "AEGP Effect Suite", "AEGP Stream Suite",
                                         "AEGP Dynamic Stream Suite"));

TEST_F(VideoEditorParamsUi, WithoutTheParameterSuiteTheStateIsStored) {
  host.options().suitesNotOffered.insert({"PF Param Utils Suite", 3});
  choose(kLayer);
  expectStored(Param::patsrc, Param::txtsrc);
  EXPECT_TRUE(instance.shown(Param::patsrc).hidden());
}

TEST_F(ParamsUi, WithoutTheParameterSuiteTheStreamsAreSetAllTheSame) {
  host.options().suitesNotOffered.insert({"PF Param Utils Suite", 3});
  choose(kLayer);
  expectStored(Param::patsrc, Param::txtsrc);
  EXPECT_TRUE(instance.shown(Param::txtsrc).hidden());
  EXPECT_FALSE(instance.shown(Param::patsrc).streamHidden);
}

// Whatever the host refuses of these, the user hears nothing, the state is stored and nothing is left open.
class ParamsUiRefusal : public ParamsUi, public testing::WithParamInterface<HostCall> {};

TEST_P(ParamsUiRefusal, IsKeptFromTheUser) {
  host.faults().failAlways(GetParam());
  choose(kLayer);
  EXPECT_TRUE(host.faults().struck());
  host.faults().failNever();
  expectStored(Param::patsrc, Param::txtsrc);
}

INSTANTIATE_TEST_SUITE_P(EachCall, ParamsUiRefusal,
                         testing::Values(HostCall::Effect, HostCall::DisposeEffect, HostCall::Stream,
                                         HostCall::DisposeStream, HostCall::StreamFlag, HostCall::UpdateParamUi));

}  // namespace
}  // namespace quiltor
