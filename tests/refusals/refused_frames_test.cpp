// Frames with one thing refused at a time: the promised answer and picture, nothing held, the render mutex free, and
// the next frame the same to the bit.
#include <gtest/gtest.h>

#include <iostream>
#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "standalone/validate/refusal_sweep.h"
#include "tests/refusals/refusal_rules.h"
#include "tests/refusals/render_lock.h"
#include "tests/render/hand_case.h"
#include "tests/render/render_test.h"
#include "tests/support/png_file.h"

namespace quiltor::refusal_tests {
namespace {

using render_tests::FilePixels;
using render_tests::PatternSource;
using render_tests::RenderCase;
using render_tests::World;
using render_tests::WorldFormat;
using standalone::Instance;
using standalone::LayerTransform;
using standalone::Refusal;
using standalone::RenderResult;
using Pixels = std::vector<unsigned char>;

constexpr int kMask = 15;
constexpr PF_PathID kChosen = 9;

struct FrameCase {
  std::string name;
  WorldFormat format;
  bool smart;
  bool file;  // the pattern comes from a file, else from another layer
};

void PrintTo(const FrameCase& frame, std::ostream* out) { *out << frame.name; }

World ramp(WorldFormat format, int width, int height, double step) {
  World world(format, width, height);
  for (int y = 0; y < height; ++y)
    for (int x = 0; x < width; ++x) world.set(x, y, {x * step, y * step, (x + y) % 3 * step, 1});
  return world;
}

class RefusedFrame : public render_tests::RenderTest, public testing::WithParamInterface<FrameCase> {
 protected:
  void SetUp() override {
    const FrameCase& chosen = GetParam();
    const bool videoEditor = standalone::isVideoEditorFormat(chosen.format);
    host.options().appId = videoEditor ? kAppId_PremierePro : kAppId_AfterEffects;
    RenderTest::SetUp();
    host.faults().answerWith(kHostsOwnCode);
    host.options().masks = {{.id = 5, .vertices = {{0, 0}, {1, 0}, {1, 1}}},
                            {.id = 9, .vertices = {{1, 1}, {6, 2}, {3, 5}}, .featherX = 2, .featherY = 1}};
    frame.input = ramp(chosen.format, 7, 5, 0.11);
    frame.smart = chosen.smart;
    frame.source = chosen.file ? PatternSource::PngRgba : PatternSource::Layer;
    frame.patternLayer = ramp(chosen.format, 4, 3, 0.23);
    frame.file = {4, 3, 4, testing_support::variedPixels(4, 3, 4)};
    frame.blendMode = render_tests::kAverage;
    frame.lock = true;
    frame.transform = {
        .positionX = 1, .positionY = 2, .anchorX = 2, .anchorY = 1, .scaleX = 70, .scaleY = 150, .rotation = 20};
    frame.blur = 2;
    setSurroundings(frame);
    instance.emplace(effect);
    if (chosen.file) {
      pick(*instance, writePattern(frame));
    } else {
      ASSERT_TRUE(instance->setUp().succeeded());
    }
    setParameters(*instance, frame);
    instance->setPath(kMask, kChosen);
  }

  void TearDown() override {
    host.faults().failNever();
    instance.reset();
    RenderTest::TearDown();
  }

  Pixels drawNow() {
    const RenderResult result = renderOf(*instance, frame);
    EXPECT_EQ(result.code, 0) << result.message;
    EXPECT_EQ(result.message, "");
    return result.output ? result.output->packed() : Pixels();
  }

  Pixels drawWith(const LayerTransform& transform) {
    host.options().transform = transform;
    Pixels pixels = drawNow();
    host.options().transform = frame.transform;
    return pixels;
  }

  // What the frame is without the thing that a refusal takes away.
  void drawPictures() {
    pictures[Picture::Same] = drawNow();
    pictures[Picture::Untouched] = World(frame.input.format(), 7, 5).packed();
    instance->setPath(kMask, 0);
    pictures[Picture::Unmasked] = drawNow();
    instance->setPath(kMask, kChosen);
    pictures[Picture::Unlocked] = drawWith({});
    LayerTransform without = frame.transform;
    without.positionX = without.positionY = 0;
    pictures[Picture::WithoutPosition] = drawWith(without);
    without = frame.transform;
    without.scaleX = without.scaleY = 100;
    pictures[Picture::WithoutScale] = drawWith(without);
    without = frame.transform;
    without.rotation = 0;
    pictures[Picture::WithoutRotation] = drawWith(without);
    without = frame.transform;
    without.anchorX = without.anchorY = 0;
    pictures[Picture::WithoutAnchor] = drawWith(without);
    instance->setLayer(render_tests::kPatternLayer, nullptr);
    pictures[Picture::PatternIsInput] = drawNow();
    setParameters(*instance, frame);
  }

  // Otherwise the comparisons below would say nothing.
  void expectPicturesToDiffer() {
    if (host.options().appId == kAppId_PremierePro) return;  // the video editor tells neither transform nor masks
    for (const auto& [kind, pixels] : pictures) {
      if (kind == Picture::Same || (kind == Picture::PatternIsInput && GetParam().file)) continue;
      EXPECT_NE(pixels, pictures[Picture::Same]) << static_cast<int>(kind);
    }
  }

  void expectResult(const RenderResult& result, const Expected& expected) {
    EXPECT_EQ(result.code, codeOf(expected.answer));
    EXPECT_EQ(result.message, expected.message);
    EXPECT_EQ((result.outFlags & PF_OutFlag_DISPLAY_ERROR_MESSAGE) != 0, *expected.message != '\0');
    EXPECT_EQ(result.output.has_value(), expected.picture != Picture::None);
    if (result.output && expected.picture != Picture::None) {
      EXPECT_TRUE(result.output->packed() == pictures[expected.picture])
          << "another picture than " << static_cast<int>(expected.picture);
    }
  }

  RenderCase frame;
  std::optional<Instance> instance;
  std::map<Picture, Pixels> pictures;
};

TEST_P(RefusedFrame, GivesTheDocumentedAnswerAndHoldsNothing) {
  drawPictures();
  expectPicturesToDiffer();
  const size_t handles = host.liveHandleCount();
  RenderResult result;
  const auto examine = [&](const Refusal& refusal, bool came) {
    SCOPED_TRACE("refused: " + refusal.text());
    EXPECT_TRUE(came);
    expectResult(result, expectedFor(refusal, host.options().appId));
    EXPECT_EQ(host.findings().text(), "");
    EXPECT_EQ(host.suiteBalance(), 0);
    EXPECT_EQ(host.liveHandleCount(), handles);
    EXPECT_TRUE(renderLockIsFree());
    EXPECT_TRUE(drawNow() == pictures[Picture::Same]) << "the next frame";
    host.findings().clear();
  };
  const size_t refusals = standalone::sweepRefusals(host, {.announce = [](const Refusal&) {},
                                                           .prepare = [] {},
                                                           .command = [&] { result = renderOf(*instance, frame); },
                                                           .examine = examine});
  std::cout << refusals << " refusals\n";
  RecordProperty("refusals", static_cast<int>(refusals));
  EXPECT_GT(refusals, 60u) << "a frame asks for more than that";
}

std::vector<FrameCase> everyFrame() {
  std::vector<FrameCase> all;
  for (const bool file : {false, true}) {
    const std::string source = file ? "FromAFile" : "FromALayer";
    for (const bool smart : {false, true}) {
      const std::string path = smart ? "Smart" : "Classic";
      all.push_back({path + "8Bits" + source, WorldFormat::Argb8, smart, file});
      all.push_back({path + "16Bits" + source, WorldFormat::Argb16, smart, file});
      all.push_back({path + "Float" + source, WorldFormat::ArgbFloat, smart, file});
    }
    all.push_back({"VideoEditor8Bits" + source, WorldFormat::Bgra8, false, file});
    all.push_back({"VideoEditorFloat" + source, WorldFormat::BgraFloat, false, file});
  }
  return all;
}

INSTANTIATE_TEST_SUITE_P(Each, RefusedFrame, testing::ValuesIn(everyFrame()),
                         [](const auto& test) { return test.param.name; });

}  // namespace
}  // namespace quiltor::refusal_tests
