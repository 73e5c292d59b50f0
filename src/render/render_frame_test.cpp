#include "render/render_frame.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <list>
#include <random>
#include <vector>

#include "description/language/param_index.h"
#include "render/kernels/blur.h"
#include "render/kernels/composite.h"

namespace quiltor {
namespace {

std::vector<float> randomChannels(size_t count, unsigned seed, float highest) {
  std::mt19937 random(seed);
  std::uniform_real_distribution<float> channel(0, highest);
  std::vector<float> channels(count);
  for (float& value : channels) value = channel(random);
  return channels;
}

// A frame of float layers, wider than a run and of more rows than there are workers.
struct TestFrame {
  static constexpr int32_t kWidth = 300, kHeight = 70;
  static constexpr size_t kChannels = size_t{4} * kWidth * kHeight;

  explicit TestFrame(float highest = 1) : pattern(randomChannels(kChannels, 2, highest)) {
    block.worlds[0] = world(input);
    block.worlds[1] = world(pattern);
    block.result = {kWidth, kHeight, result.data(), 32, kWidth * 16};
    set(Param::tilemode, 2);
    set(Param::blendmode, 12);
    set(Param::opacity, 70);
    set(Param::scale, 60);
    set(Param::rotation, 30);
    set(Param::tintopacity, 40);
    state.hostMemory = [this](size_t bytes) { return memory.emplace_back(bytes).data(); };
  }

  static WorldRecord world(std::vector<float>& pixels) {
    WorldRecord record;
    record.width = kWidth;
    record.height = kHeight;
    record.pixels = pixels.data();
    record.rowBytes = kWidth * 16;
    return record;
  }

  void set(Param::Index index, float value) { block.slots[static_cast<size_t>(index)].words[3] = value; }
  float* at(int32_t x, int32_t y) {
    return result.data() + 4 * (static_cast<size_t>(y) * kWidth + static_cast<size_t>(x));
  }

  std::vector<float> input = randomChannels(kChannels, 1, 1), pattern, result = std::vector<float>(kChannels, -9);
  std::list<std::vector<char>> memory;
  DescriptionSettings settings;
  RenderBlock block{settings};
  FrameState state;
  RenderTransform transform;
};

template <class Work>
void overRuns(const Work& work) {
  for (int32_t y = 0; y < TestFrame::kHeight; ++y) {
    for (int32_t x = 0; x < TestFrame::kWidth; x += 100) work(x, y, size_t{100});
  }
}

// Every step through the whole frame before the next one begins, and everything on one thread.
void drawInFourPasses(TestFrame& frame, int32_t radius) {
  constexpr int32_t kWidth = TestFrame::kWidth, kHeight = TestFrame::kHeight;
  const SampleTransform sampling = frame.transform.sampling(frame.block);
  PixelRun run;
  overRuns([&](int32_t x, int32_t y, size_t count) {
    sampleRun(frame.state.pattern, sampling, x, y, count, run);
    packRun(run, count, frame.at(x, y));
  });
  if (radius > 0) {
    const TentScale across(radius, kWidth), down(radius, kHeight);
    BlurScratch scratch(kWidth, kHeight, frame.state.hostMemory(BlurScratch::bytes(kWidth, kHeight)));
    BlurLine line(kWidth, radius);
    for (int32_t y = 0; y < kHeight; ++y) {
      for (int32_t x = 0; x < kWidth; x += 100) {
        unpackRun(frame.at(x, y), 100, run);
        ASSERT_TRUE(line.take(run, x, 100));
      }
      line.blurAcross(across, y, scratch);
    }
    PixelRun blurred;
    overRuns([&](int32_t x, int32_t y, size_t count) {
      BlurColumns(scratch, down, x, count, y).next(blurred);
      unpackRun(frame.at(x, y), count, run);
      std::copy_n(run.a, count, blurred.a);
      packRun(blurred, count, frame.at(x, y));
    });
  }
  overRuns([&](int32_t x, int32_t y, size_t count) {
    unpackRun(frame.at(x, y), count, run);
    const float* input = frame.input.data() + (frame.at(x, y) - frame.result.data());
    compositeRun(run, input, ChannelType::Float, {frame.transform.blendMode, frame.transform.opacity}, count,
                 frame.at(x, y));
  });
}

class FusedPasses : public testing::TestWithParam<int> {};

void expectTheBitsOfFourPasses(TestFrame& frame, int32_t radius) {
  frame.set(Param::blur, static_cast<float>(radius));
  renderFrame(frame.block, frame.state, frame.transform);
  const std::vector<float> fused = frame.result;
  frame.result.assign(frame.result.size(), -9);
  drawInFourPasses(frame, radius);
  EXPECT_EQ(std::memcmp(fused.data(), frame.result.data(), fused.size() * sizeof(float)), 0);
}

TEST_P(FusedPasses, GiveTheBitsOfFourSeparateOnes) {
  TestFrame frame;
  expectTheBitsOfFourPasses(frame, GetParam());
}

TEST_P(FusedPasses, GiveThemForAPatternThatIsOpaqueInItsUpperHalf) {
  TestFrame frame;
  frame.set(Param::rotation, 0);
  for (size_t alpha = 3; alpha < frame.pattern.size() / 2; alpha += 4) frame.pattern[alpha] = 1;
  expectTheBitsOfFourPasses(frame, GetParam());
}

INSTANTIATE_TEST_SUITE_P(Blurs, FusedPasses, testing::Values(0, 1, 2, 7, 33, 100));

// The blurred pattern itself: Normal at full opacity over an opaque input shows it.
std::vector<float> blurredPattern(float highest, float blur) {
  TestFrame frame(highest);
  frame.input.assign(frame.input.size(), 1);
  frame.set(Param::blendmode, 0);
  frame.set(Param::opacity, 100);
  frame.set(Param::blur, blur);
  renderFrame(frame.block, frame.state, frame.transform);
  return frame.result;
}

// Colours up to 2 are summed exactly, larger ones tap by tap in 32 bits: with twice the colours the other way is taken.
TEST(BlurredFrame, IsTheSameWithExactSumsAndWithSumsIn32Bits) {
  for (const float blur : {2.0f, 10.0f, 50.0f, 100.0f}) {
    const std::vector<float> exact = blurredPattern(1, blur), plain = blurredPattern(4, blur);
    double farthest = 0;
    for (size_t i = 0; i < exact.size(); ++i) {
      if (i % 4 != 3) farthest = std::max(farthest, std::fabs(static_cast<double>(exact[i]) - plain[i] / 4.0));
    }
    EXPECT_LT(farthest, 2e-6) << "blur " << blur;
    EXPECT_GT(farthest, 0) << "blur " << blur;
  }
}

TEST(BlurredFrame, OfAnEvenPatternIsThatPattern) {
  for (const float colour : {0.0f, 0.1f, 0.3f, 1.0f}) {
    TestFrame frame;
    frame.pattern.assign(frame.pattern.size(), colour);
    frame.input.assign(frame.input.size(), 1);
    frame.set(Param::tintopacity, 0);
    frame.set(Param::blendmode, 0);
    frame.set(Param::opacity, 100);
    frame.set(Param::blur, 100);
    renderFrame(frame.block, frame.state, frame.transform);
    for (size_t i = 0; i < frame.result.size(); ++i) {
      if (i % 4 == 3) continue;
      ASSERT_NEAR(frame.result[i], colour, 4e-9 + 6e-8 * static_cast<double>(colour)) << i;
    }
  }
}

}  // namespace
}  // namespace quiltor
