#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>

#include "platform/testing/file_reads.h"
#include "tests/support/flat_sequence.h"
#include "tests/ui/control_test.h"

namespace quiltor {
namespace {

using standalone::CallResult;
using testing::ElementsAre;
using testing::IsEmpty;
using testing_support::ControlTest;

using SettingsButton = ControlTest;

TEST_F(SettingsButton, OpensTheSettings) {
  writeList(userList());
  EXPECT_EQ(instance.doDialog().code, 0);
  EXPECT_THAT(scripts, ElementsAre(plainScript("settings.jsx")));
}

TEST_F(SettingsButton, OpensThemWithoutAnInstancesDataToo) {
  standalone::Instance bare(effect);
  EXPECT_EQ(bare.doDialog().code, 0);
  EXPECT_EQ(scripts.size(), 1u);
}

TEST_F(SettingsButton, ConvertsTheLibraryWhenTheSettingsAreKept) {
  writeList(userList());
  for (const bool kept : {true, false}) {
    outcome.result = kept ? "baseFolder: x\n" : "";
    FileReads reads(userList());
    EXPECT_EQ(instance.doDialog().code, 0);
    EXPECT_EQ(reads.any(), kept);
  }
}

TEST_F(SettingsButton, ChangesNothingOfTheInstance) {
  const auto before = flatCopy();
  outcome.result = folder.path("a.png") + "*Label*Name*";
  const CallResult result = instance.doDialog();
  EXPECT_EQ(result.out.out_flags, 0);
  EXPECT_EQ(flatCopy(), before);
}

TEST_F(SettingsButton, DoesNothingInTheVideoEditor) {
  host.options().appId = kAppId_PremierePro;
  EXPECT_EQ(instance.doDialog().code, 0);
  EXPECT_THAT(scripts, IsEmpty());
}

TEST_F(SettingsButton, Is516WithoutTheScriptingSuite) {
  host.options().suitesNotOffered = {{"AEGP Utility Suite", 11}};
  EXPECT_EQ(instance.doDialog().code, 516);
  EXPECT_THAT(scripts, IsEmpty());
}

}  // namespace
}  // namespace quiltor
