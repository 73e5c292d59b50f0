#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstring>
#include <filesystem>
#include <fstream>

#include "host/global_data.h"
#include "tests/support/effect_test.h"

namespace quiltor {
namespace {

using standalone::CallResult;
using standalone::Effect;
using standalone::HostCall;
using testing::ElementsAre;
using testing::IsEmpty;
using testing_support::EffectTest;
using testing_support::VideoEditorTest;

class GlobalSetup : public EffectTest {};
class GlobalSetupInTheVideoEditor : public VideoEditorTest {};

// The global data as the host sees it between two calls.
GlobalData globalDataOf(const Effect& effect) {
  GlobalData data{};
  std::memcpy(&data, *effect.globalData(), sizeof data);
  return data;
}

TEST_F(GlobalSetup, DeclaresVersionAndCapabilities) {
  EXPECT_EQ(effect.globalSetup().code, 0);
  EXPECT_EQ(effect.version(), 0x80001u);
  EXPECT_EQ(effect.outFlags(), 0x6008064);
  EXPECT_EQ(effect.outFlags2(), 0xC21488);
}

TEST_F(GlobalSetup, MakesGlobalDataWithNothingInItYetButThePluginsId) {
  effect.globalSetup();
  ASSERT_NE(effect.globalData(), nullptr);
  const GlobalData data = globalDataOf(effect);
  EXPECT_NE(data.pluginId, 0u);
  EXPECT_EQ(data.initialised, 1);
  EXPECT_EQ(data.auxiliary, nullptr);
  EXPECT_EQ(data.owned, nullptr);
  EXPECT_EQ(data.reserved, nullptr);
}

TEST_F(GlobalSetup, RegistersTheEffectByItsName) {
  effect.globalSetup();
  EXPECT_THAT(host.registeredEffectNames(), ElementsAre("Quiltor"));
}

TEST_F(GlobalSetup, NamesTheOptionsButtonSettings) {
  effect.globalSetup();
  EXPECT_EQ(host.optionsButtonName(), "Settings");
}

TEST_F(GlobalSetup, DeclaresNoPixelFormatsInTheCompositor) {
  effect.globalSetup();
  EXPECT_THAT(host.declaredPixelFormats(), IsEmpty());
}

TEST_F(GlobalSetup, AcquiresEachOfItsThreeSuitesOnceAndReleasesIt) {
  host.faults().failNever();
  effect.globalSetup();
  EXPECT_EQ(host.faults().count(HostCall::AcquireSuite), 3u);
  EXPECT_EQ(host.faults().count(HostCall::ReleaseSuite), 3u);
  EXPECT_EQ(host.suiteBalance(), 0);
}

TEST_F(GlobalSetup, EmptiesTheLogOfTheRunBefore) {
  effect.globalSetup();
  std::ofstream(logPath()) << "a line of the first run\n";
  effect.shutDown();

  Effect second(host, module);
  second.globalSetup();
  ASSERT_TRUE(std::filesystem::exists(logPath()));
  EXPECT_EQ(contentsOf(logPath()), "");
}

TEST_F(GlobalSetup, SucceedsWhenTheLogCannotBeWritten) {
  std::filesystem::remove_all(folder.path("user"));
  EXPECT_EQ(effect.globalSetup().code, 0);
  EXPECT_FALSE(std::filesystem::exists(logPath()));
}

TEST_F(GlobalSetup, SucceedsWhenAFolderStandsInTheLogsPlace) {
  std::filesystem::create_directories(logPath());
  EXPECT_EQ(effect.globalSetup().code, 0);
}

TEST_F(GlobalSetup, Returns516WithoutTheHandleSuite) {
  host.options().suitesNotOffered = {{"PF Handle Suite", 2}};
  EXPECT_EQ(effect.globalSetup().code, 516);
  EXPECT_EQ(effect.globalData(), nullptr);
  EXPECT_THAT(host.registeredEffectNames(), IsEmpty());
  host.options().suitesNotOffered.clear();
}

TEST_F(GlobalSetup, DeclaresCapabilitiesBeforeAnythingCanFail) {
  host.options().suitesNotOffered = {{"PF Handle Suite", 2}};
  const CallResult result = effect.globalSetup();
  EXPECT_EQ(result.out.my_version, 0x80001u);
  EXPECT_EQ(result.out.out_flags2, 0xC21488);
  host.options().suitesNotOffered.clear();
}

TEST_F(GlobalSetup, Returns512AndDoesNothingMoreWithoutMemory) {
  host.faults().failAlways(HostCall::NewHandle);
  EXPECT_EQ(effect.globalSetup().code, 512);
  EXPECT_EQ(effect.globalData(), nullptr);
  EXPECT_THAT(host.registeredEffectNames(), IsEmpty());
  EXPECT_EQ(host.optionsButtonName(), "");
}

TEST_F(GlobalSetup, RunsOnWithoutGlobalDataWhenTheHandleCannotBeLocked) {
  host.faults().failAlways(HostCall::LockHandle);
  EXPECT_EQ(effect.globalSetup().code, 0);
  EXPECT_EQ(effect.globalData(), nullptr);
  EXPECT_EQ(host.liveHandleCount(), 0u);
  EXPECT_THAT(host.registeredEffectNames(), ElementsAre("Quiltor"));
  EXPECT_EQ(host.optionsButtonName(), "Settings");
}

TEST_F(GlobalSetup, ReturnsAFailedRegistrationAtOnceAndDisposesTheHandle) {
  host.faults().failAlways(HostCall::RegisterEffect);
  EXPECT_EQ(effect.globalSetup().code, 516);
  EXPECT_EQ(effect.globalData(), nullptr);
  EXPECT_EQ(host.liveHandleCount(), 0u);
  EXPECT_EQ(host.optionsButtonName(), "");
}

TEST_F(GlobalSetup, Returns516WithoutTheUtilitySuiteAndDisposesTheHandle) {
  host.options().suitesNotOffered = {{"AEGP Utility Suite", 7}};
  EXPECT_EQ(effect.globalSetup().code, 516);
  EXPECT_EQ(effect.globalData(), nullptr);
  EXPECT_EQ(host.liveHandleCount(), 0u);
}

TEST_F(GlobalSetup, ShowsAMessageWithoutTheEffectUiSuiteAndGoesOn) {
  host.options().suitesNotOffered = {{"PF Effect UI Suite", 1}};
  const CallResult result = effect.globalSetup();
  EXPECT_EQ(result.code, 0);
  EXPECT_EQ(result.message(), "Not able to acquire AEFX Suite.");
  EXPECT_EQ(result.out.out_flags, 0x6008064 | PF_OutFlag_DISPLAY_ERROR_MESSAGE);
  EXPECT_NE(effect.globalData(), nullptr);
}

TEST_F(GlobalSetup, ShowsAMessageWhenTheEffectUiSuiteCannotBeReleased) {
  host.faults().failAt(HostCall::ReleaseSuite, 0);
  const CallResult result = effect.globalSetup();
  EXPECT_EQ(result.code, 0);
  EXPECT_EQ(result.message(), "Not able to release AEFX Suite.");
  EXPECT_EQ(result.out.out_flags, 0x6008064 | PF_OutFlag_DISPLAY_ERROR_MESSAGE);
}

TEST_F(GlobalSetup, IgnoresTheReplyToTheOptionsButtonsName) {
  host.faults().failAlways(HostCall::SetOptionsButton);
  const CallResult result = effect.globalSetup();
  EXPECT_EQ(result.code, 0);
  EXPECT_EQ(result.message(), "");
}

TEST_F(GlobalSetup, ShowsNothingWhenAllIsWell) {
  const CallResult result = effect.globalSetup();
  EXPECT_EQ(result.message(), "");
  EXPECT_EQ(result.out.out_flags & PF_OutFlag_DISPLAY_ERROR_MESSAGE, 0);
}

TEST_F(GlobalSetupInTheVideoEditor, RegistersNoPluginId) {
  EXPECT_EQ(effect.globalSetup().code, 0);
  EXPECT_THAT(host.registeredEffectNames(), IsEmpty());
  ASSERT_NE(effect.globalData(), nullptr);
  EXPECT_EQ(globalDataOf(effect).pluginId, 0u);
  EXPECT_EQ(globalDataOf(effect).initialised, 1);
}

TEST_F(GlobalSetupInTheVideoEditor, DeclaresItsThreePixelFormatsInOrder) {
  effect.globalSetup();
  EXPECT_THAT(host.declaredPixelFormats(), ElementsAre(0x61724742, 0x4C614742, 0x61726762));
}

TEST_F(GlobalSetupInTheVideoEditor, LeavesTheOptionsButtonAlone) {
  effect.globalSetup();
  EXPECT_EQ(host.optionsButtonName(), "");
}

TEST_F(GlobalSetupInTheVideoEditor, SucceedsSilentlyWithoutThePixelFormatSuite) {
  host.options().suitesNotOffered = {{"PF Pixel Format Suite", 1}};
  const CallResult result = effect.globalSetup();
  EXPECT_EQ(result.code, 0);
  EXPECT_EQ(result.message(), "");
  EXPECT_THAT(host.declaredPixelFormats(), IsEmpty());
}

}  // namespace
}  // namespace quiltor
