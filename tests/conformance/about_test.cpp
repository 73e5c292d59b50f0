#include <gtest/gtest.h>

#include "tests/support/effect_test.h"

namespace quiltor {
namespace {

using standalone::CallResult;
using standalone::HostCall;
using testing_support::EffectTest;
using testing_support::VideoEditorTest;

class About : public EffectTest {};
class AboutInTheVideoEditor : public VideoEditorTest {};

TEST_F(About, TellsTheEffectsNameWhatItDoesAndItsVersion) {
  effect.setUp();
  const CallResult result = effect.about();
  EXPECT_EQ(result.code, 0);
  EXPECT_EQ(result.message(),
            "Quiltor\r"
            "The plugin allows you to draw textures on layers and work with patterns directly from AE.\r"
            "Draws a pattern over a layer.\r"
            "v1.0.0");
}

TEST_F(About, NeedsNoSetup) {
  const CallResult result = effect.about();
  EXPECT_EQ(result.code, 0);
  EXPECT_EQ(result.message().substr(0, 8), "Quiltor\r");
}

TEST_F(About, Returns516AndShowsNothingWhenTheHostCannotCopyTheText) {
  host.options().suitesNotOffered = {{"PF ANSI Suite", 1}};
  const CallResult result = effect.about();
  EXPECT_EQ(result.code, 516);
  EXPECT_EQ(result.message(), "");
}

TEST_F(AboutInTheVideoEditor, ShowsNothingAndAsksForNoSuite) {
  effect.setUp();
  host.faults().failNever();
  const CallResult result = effect.about();
  EXPECT_EQ(result.code, 0);
  EXPECT_EQ(result.message(), "");
  EXPECT_EQ(host.faults().count(HostCall::AcquireSuite), 0u);
  EXPECT_EQ(host.faults().count(HostCall::ReleaseSuite), 0u);
}

}  // namespace
}  // namespace quiltor
