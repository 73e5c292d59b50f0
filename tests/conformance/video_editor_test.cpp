// The life of an instance in the video editor, which has few of the compositing application's suites.
#include <gmock/gmock.h>

#include <set>
#include <string>
#include <vector>

#include "tests/support/flat_sequence.h"
#include "tests/support/instance_test.h"
#include "tests/support/png_file.h"

namespace quiltor {
namespace {

using standalone::Instance;
using testing_support::flatSequence;
using testing_support::liveRecordOf;
using testing_support::selectionOf;

class InTheVideoEditor : public testing_support::VideoEditorTest {
 protected:
  void SetUp() override { ASSERT_TRUE(effect.setUp().succeeded()); }

  std::vector<uint8_t> picked() {
    const std::string path = folder.path("picked.png");
    testing_support::writePng(path, 3, 2, 3, testing_support::variedPixels(3, 2, 3));
    return flatSequence({{0, selectionOf(path)}});
  }
};

TEST_F(InTheVideoEditor, TheParametersAreThoseOfTheCompositingApplication) {
  EXPECT_EQ(effect.parameters().size(), 16u);
  EXPECT_TRUE(effect.customUiRegistered());
  std::vector<std::string> names;
  for (const auto& parameter : effect.parameters()) names.push_back(parameter.name);
  const auto inEditor = names;
  effect.shutDown();
  host.options().appId = kAppId_AfterEffects;
  ASSERT_TRUE(effect.setUp().succeeded());
  names.clear();
  for (const auto& parameter : effect.parameters()) names.push_back(parameter.name);
  EXPECT_EQ(names, inEditor);
}

TEST_F(InTheVideoEditor, APickedPatternTravelsWithTheProject) {
  Instance instance(effect);
  ASSERT_TRUE(instance.resetupFrom(picked()).succeeded());
  EXPECT_EQ(liveRecordOf(instance).patternImage->width, 3);
  std::vector<unsigned char> copy;
  ASSERT_TRUE(instance.getFlattened(copy).succeeded());
  EXPECT_EQ(copy, picked());
  ASSERT_TRUE(instance.flatten().succeeded());
  EXPECT_EQ(instance.sequenceBytes(), copy);
  ASSERT_TRUE(instance.resetup().succeeded());
  EXPECT_EQ(liveRecordOf(instance).patternImage->width, 3);
}

TEST_F(InTheVideoEditor, NeitherProjectNorScriptSuitesAreAskedForUntilAFrameIsDrawn) {
  std::set<std::string> asked;
  host.options().trace = [&asked](std::string_view line) {
    if (line.find("AEGP") != line.npos) asked.emplace(line);
  };
  effect.shutDown();
  ASSERT_TRUE(effect.setUp().succeeded());
  {
    Instance instance(effect);
    ASSERT_TRUE(instance.setUp().succeeded());
    ASSERT_TRUE(instance.flatten().succeeded());
    ASSERT_TRUE(instance.resetup().succeeded());
    effect.about();
  }
  EXPECT_THAT(asked, testing::IsEmpty());
}

// Whichever application lacks it, and whether the instance is new or comes with a project.
class WithoutTheAdvancedApplicationSuite : public testing_support::EffectTest,
                                           public testing::WithParamInterface<A_long> {};

TEST_P(WithoutTheAdvancedApplicationSuite, AnInstanceIsRefusedWith516AndTakenWhenTheSuiteIsBack) {
  host.options().appId = GetParam();
  ASSERT_TRUE(effect.setUp().succeeded());
  host.options().suitesNotOffered = {{"PF AE Adv App Suite", 1}};
  Instance fresh(effect), opened(effect);
  EXPECT_EQ(fresh.setUp().code, 516);
  EXPECT_EQ(fresh.sequenceData(), nullptr);
  EXPECT_EQ(opened.resetupFrom(flatSequence({})).code, 516);
  host.options().suitesNotOffered = {};
  EXPECT_EQ(fresh.setUp().code, 0);
  EXPECT_EQ(opened.resetupFrom(flatSequence({})).code, 0);
}

INSTANTIATE_TEST_SUITE_P(Applications, WithoutTheAdvancedApplicationSuite,
                         testing::Values(kAppId_AfterEffects, kAppId_PremierePro),
                         [](const auto& application) -> std::string {
                           return application.param == kAppId_PremierePro ? "VideoEditor" : "Compositing";
                         });

}  // namespace
}  // namespace quiltor
