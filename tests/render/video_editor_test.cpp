// Frames in the video editor: plain rendering of worlds that are blue first, and none of the compositing application's
// suites.
#include <utility>
#include <vector>

#include "hostapi/suites_aegp.h"
#include "hostapi/suites_pf.h"
#include "tests/render/hand_case.h"
#include "tests/render/random_case.h"
#include "tests/render/render_test.h"

namespace quiltor::render_tests {
namespace {

using standalone::HostCall;
using standalone::Instance;
using standalone::Mask;
using standalone::RenderResult;

// What the video editor makes of a frame of the compositing application.
RenderCase blueFirst(RenderCase frame) {
  const bool bytes = standalone::bytesPerPixel(frame.input.format()) == 4;
  frame.input = frame.input.converted(bytes ? WorldFormat::Bgra8 : WorldFormat::BgraFloat);
  frame.smart = false;
  return frame;
}

class VideoEditorRender : public RenderTest {
 protected:
  void SetUp() override {
    host.options().appId = kAppId_PremierePro;
    RenderTest::SetUp();
  }

  // The same module, loaded by the other application.
  void moveTo(A_long appId) {
    effect.shutDown();
    host.options().appId = appId;
    ASSERT_TRUE(effect.setUp().succeeded());
  }

  RenderResult renderMasked(World& input) {
    host.options().masks = {{.id = 1, .vertices = {{0, 0}, {4, 0}, {4, 6}, {0, 6}}}};
    const World pattern = filled(4, 4, {1, 0, 0.8, 1});
    Instance instance(effect);
    EXPECT_TRUE(instance.setUp().succeeded());
    instance.setChoice(kSource, 1);
    instance.setLayer(kPatternLayer, &pattern);
    instance.setPath(kMask, 1);
    return instance.render({.input = &input});
  }

  // A pattern of two halves that is locked to its layer.
  RenderCase locked() {
    RenderCase frame = overlaid(filled(8, 8, grey(0), WorldFormat::BgraFloat), filled(8, 8, grey(1)));
    for (int y = 0; y < 8; ++y)
      for (int x = 0; x < 4; ++x) frame.patternLayer.set(x, y, {1, 0, 0, 1});
    frame.smart = false;
    frame.lock = true;
    frame.transform = {.positionX = 4, .anchorX = 0};
    return frame;
  }
};

TEST_F(VideoEditorRender, DrawsThePicturesOfTheCompositingApplication) {
  constexpr uint32_t kFrames = 120;
  std::vector<RenderCase> frames;
  std::vector<std::vector<unsigned char>> expected;
  moveTo(kAppId_AfterEffects);
  for (uint32_t number = 0; number < kFrames; ++number) {
    RenderCase frame = randomCase(number);
    if (frame.input.format() == WorldFormat::Argb16) continue;
    frame.input.setOrigin(0, 0);
    frame.transform = {};  // the editor tells nothing of it
    frames.push_back(frame);
    const World picture = drawn(frame);
    expected.push_back(picture.converted(blueFirst(frame).input.format()).packed());
  }
  EXPECT_GT(frames.size(), 60u);
  moveTo(kAppId_PremierePro);
  for (size_t i = 0; i < frames.size(); ++i) {
    ASSERT_EQ(drawn(blueFirst(frames[i])).packed(), expected[i]) << describe(frames[i]);
  }
}

TEST_F(VideoEditorRender, TakesFloatsOfLinearLightAsTheyAre) {
  RenderCase frame = blueFirst(overlaid(filled(3, 2, {0.1, 2, -0.5, 1}), filled(1, 1, {0.5, 0.25, 3, 0.5})));
  frame.blendMode = kAverage;
  const World picture = drawn(frame);
  host.options().linearLight = true;
  EXPECT_EQ(drawn(frame).packed(), picture.packed());
}

TEST_F(VideoEditorRender, TakesWorldsThatAreAlphaFirstToo) {
  for (const WorldFormat format : {WorldFormat::Argb8, WorldFormat::Argb16, WorldFormat::ArgbFloat}) {
    RenderCase frame = overlaid(filled(3, 2, {0.2, 0.4, 0.6, 1}, format), filled(1, 1, {1, 0, 0.8, 1}, format));
    frame.smart = false;
    const World picture = drawn(frame);
    EXPECT_EQ(picture.at(2, 1).r, 1);
    EXPECT_EQ(picture.at(2, 1).g, 0);
    EXPECT_NEAR(picture.at(2, 1).b, 0.8, 0.001);
    EXPECT_EQ(picture.at(2, 1).a, 1);
  }
}

TEST_F(VideoEditorRender, KnowsNothingOfTheLayersPlace) {
  const World picture = drawn(locked());
  expectPixel(picture, 0, 0, {1, 0, 0, 1});
  expectPixel(picture, 4, 0, grey(1));
}

TEST_F(VideoEditorRender, AsksForTheLayersPlaceWhereItIsTold) {
  host.options().suitesAlsoOffered = {{kAEGPPFInterfaceSuite, kAEGPPFInterfaceSuiteVersion1},
                                      {kAEGPStreamSuite, kAEGPStreamSuiteVersion7}};
  const World picture = drawn(locked());
  expectPixel(picture, 0, 0, grey(1));
  expectPixel(picture, 4, 0, {1, 0, 0, 1});
}

TEST_F(VideoEditorRender, DrawsUnlimitedWithoutTheSuitesThatMasksNeed) {
  for (const WorldFormat format : {WorldFormat::Bgra8, WorldFormat::BgraFloat}) {
    World input = filled(8, 6, {0.2, 0.4, 0.6, 1}, format);
    const RenderResult result = renderMasked(input);
    EXPECT_EQ(result.code, PF_Err_NONE);
    EXPECT_EQ(result.message, "");
    ASSERT_TRUE(result.output.has_value());
    for (int x = 0; x < 8; ++x) {
      EXPECT_EQ(result.output->at(x, 3).r, 1);
      EXPECT_EQ(result.output->at(x, 3).a, 1);
    }
  }
}

TEST_F(VideoEditorRender, LimitsThePatternWhereTheSuitesThatMasksNeedAreOffered) {
  const std::vector needed(suitesOfMasks().begin(), suitesOfMasks().end());
  for (const WorldFormat format : {WorldFormat::Bgra8, WorldFormat::BgraFloat}) {
    World input = filled(8, 6, {0.2, 0.4, 0.6, 1}, format);
    // With all of them, and with each of them but one.
    for (size_t missing = 0; missing <= needed.size(); ++missing) {
      host.options().suitesAlsoOffered = {needed.begin(), needed.end()};
      if (missing < needed.size()) host.options().suitesAlsoOffered.erase(needed[missing]);
      const RenderResult result = renderMasked(input);
      EXPECT_EQ(result.code, PF_Err_NONE) << missing;
      EXPECT_EQ(result.message, "") << missing;
      ASSERT_TRUE(result.output.has_value());
      EXPECT_EQ(result.output->at(3, 3).a, 1);
      EXPECT_EQ(result.output->at(4, 3).a, missing == needed.size() ? 0 : 1) << missing;
      EXPECT_NEAR(result.output->at(4, 3).b, missing == needed.size() ? 0.6 : 0.8, 0.005);
    }
  }
}

TEST_F(VideoEditorRender, DrawsNothingWithoutTheSuiteThatTellsItsFormats) {
  RenderCase frame = blueFirst(overlaid(filled(3, 2, grey(0.5)), filled(1, 1, grey(1))));
  host.options().suitesNotOffered = {{kPFPixelFormatSuite, kPFPixelFormatSuiteVersion1}};
  const RenderResult result = draw(frame);
  EXPECT_EQ(result.code, PF_Err_NONE);
  ASSERT_TRUE(result.output.has_value());
  EXPECT_EQ(result.output->packed(), World(WorldFormat::BgraFloat, 3, 2).packed());
}

TEST_F(VideoEditorRender, EndsWithTheHostsAnswerWhereverItIsInterrupted) {
  host.options().iterateThreads = 1;
  RenderCase frame = blueFirst(overlaid(filled(3, 2, grey(0.5)), filled(1, 1, grey(1))));
  const World whole = drawn(frame);
  int interrupted = 0;
  for (int k = 0;; ++k) {
    bool asked = false;
    host.options().onAbort = [&](int call) -> PF_Err {
      asked = asked || call == k;
      return call < k ? PF_Err_NONE : PF_Interrupt_CANCEL;
    };
    const RenderResult result = draw(frame);
    host.options().onAbort = nullptr;
    if (!asked) break;
    ++interrupted;
    EXPECT_EQ(result.code, PF_Interrupt_CANCEL) << k;
    EXPECT_EQ(drawn(frame).packed(), whole.packed()) << k;
  }
  // By the handler, twice by the driver, and by every row of two layers and the output.
  EXPECT_EQ(interrupted, 3 + 2 + 1 + 2);
}

TEST_F(VideoEditorRender, LeavesNothingBehindAndIsRightAgainAfterAnyCallThatTheHostRefuses) {
  host.options().iterateThreads = 1;
  World layer(WorldFormat::ArgbFloat, 5, 4);
  for (int y = 0; y < 4; ++y)
    for (int x = 0; x < 5; ++x) layer.set(x, y, {x / 5.0, y / 4.0, 0.5, 1});
  const RenderCase frame = blueFirst(overlaid(layer, layer));
  Instance instance(effect);
  ASSERT_TRUE(instance.setUp().succeeded());
  setParameters(instance, frame);
  const auto picture = renderOf(instance, frame).output.value().packed();
  const auto untouched = World(frame.input.format(), 5, 4).packed();
  const size_t handles = host.liveHandleCount();

  int refused = 0;
  for (int kind = 0; kind < static_cast<int>(HostCall::Count_); ++kind) {
    const auto call = static_cast<HostCall>(kind);
    for (size_t k = 0;; ++k) {
      SCOPED_TRACE("call " + std::to_string(k) + " of kind " + std::to_string(kind));
      host.faults().failAt(call, k);
      const RenderResult result = renderOf(instance, frame);
      const bool struck = host.faults().struck();
      host.faults().failNever();
      ASSERT_EQ(host.findings().text(), "");
      ASSERT_EQ(host.suiteBalance(), 0);
      ASSERT_EQ(host.liveHandleCount(), handles);
      if (!struck) break;
      ++refused;
      if (result.code == PF_Err_NONE) {
        // Without its data or its pixel formats nothing is drawn; the other suites are not there anyway.
        const bool mayBeUntouched = call == HostCall::LockHandle || call == HostCall::AcquireSuite;
        const auto pixels = result.output.value().packed();
        EXPECT_TRUE(pixels == picture || (mayBeUntouched && pixels == untouched));
      }
      ASSERT_EQ(renderOf(instance, frame).output.value().packed(), picture);
    }
  }
  EXPECT_GT(refused, 30);
}

}  // namespace
}  // namespace quiltor::render_tests
