#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <random>
#include <vector>

#include <hwy/targets.h>
#include "render/kernels/blend_modes.h"
#include "render/kernels/blur.h"
#include "render/kernels/blur_plain.h"
#include "render/kernels/composite.h"
#include "render/kernels/convert.h"
#include "render/kernels/sample.h"
#include "render/kernels/streaming.h"

namespace quiltor {
namespace {

// Every instruction set of this processor for which the kernels are built.
std::vector<int64_t> instructionSets() {
  std::vector<int64_t> sets;
  for (int64_t rest = hwy::SupportedTargets() & (HWY_SSE4 | HWY_AVX2 | HWY_AVX3); rest != 0; rest &= rest - 1) {
    sets.push_back(rest & -rest);
  }
  return sets;
}

// Runs draw on each instruction set and expects the same bytes of all. On a processor with one of them there is nothing
// to compare; what the bytes have to be is held elsewhere.
template <class Draw>
void expectSameOnAll(const Draw& draw) {
  std::vector<float> first;
  for (const int64_t set : instructionSets()) {
    hwy::SetSupportedTargetsForTest(set);
    const std::vector<float> now = draw();
    if (first.empty()) first = now;
    ASSERT_EQ(std::memcmp(now.data(), first.data(), now.size() * sizeof(float)), 0) << hwy::TargetName(set);
  }
  hwy::SetSupportedTargetsForTest(0);
}

std::vector<float> randomChannels(size_t count, unsigned seed) {
  std::mt19937 random(seed);
  std::uniform_real_distribution<float> value(-0.25f, 1.25f);
  std::vector<float> channels(count);
  for (float& channel : channels) channel = random() % 5 ? value(random) : static_cast<float>(random() % 3) * 0.5f;
  return channels;
}

// Lengths that end inside a vector, at its end and behind it.
const std::vector<size_t> kCounts{1, 2, 3, 4, 5, 7, 8, 9, 15, 16, 17, 33};

TEST(InstructionSets, CompositeToTheSameBitsInEveryMode) {
  const std::vector<float> input = randomChannels(4 * 33, 1), pattern = randomChannels(4 * 33, 2);
  for (const size_t count : kCounts) {
    for (int32_t mode = 0; mode <= static_cast<int32_t>(BlendMode::Count); ++mode) {
      expectSameOnAll([&] {
        PixelRun run{};
        unpackRun(pattern.data(), count, run);
        std::vector<float> row(4 * count);
        compositeRun(run, input.data(), ChannelType::Float, {mode, 0.7, count % 2 == 0}, count, row.data());
        finishStreaming();
        return row;
      });
    }
  }
}

void expectSameSampling(const PatternPixels& pattern) {
  SampleTransform transform{.offsetX = 3, .offsetY = -2, .cosine = 0.8, .sine = 0.6, .scaleFactor = 0.7};
  for (const double tintAmount : {0.0, 0.3}) {
    transform.tintAmount = tintAmount;
    transform.tintG = 0.5f;
    for (const TileMode mode : {TileMode::Single, TileMode::Tiled, TileMode::Mirrored}) {
      transform.tileMode = mode;
      for (const size_t count : kCounts) {
        expectSameOnAll([&] {
          PixelRun run;
          sampleRun(pattern, transform, 2, 4, count, run);
          std::vector<float> row(4 * count);
          packRun(run, count, row.data());
          return row;
        });
      }
    }
  }
}

TEST(InstructionSets, SampleToTheSameBitsInEveryTileModeOfEveryPicture) {
  std::vector<uint8_t> texels(7 * 5 * 4);
  std::mt19937 random(3);
  for (uint8_t& texel : texels) texel = static_cast<uint8_t>(random());
  for (const int32_t bytes : {1, 3, 4}) {
    const auto size = static_cast<size_t>(7 * 5 * bytes);
    expectSameSampling({texels.data(), std::max<size_t>(size, 37), 7, 5, bytes, ChannelType::Byte});
  }
  expectSameSampling({texels.data(), texels.size(), 1, 5, 4, ChannelType::Byte});
  const std::vector<float> channels = randomChannels(4 * 7 * 5, 6);
  expectSameSampling({channels.data(), channels.size() * sizeof(float), 7, 5, 16, ChannelType::Float});
}

// The frame's runs, blurred, one after the other.
std::vector<float> blurred(const std::vector<float>& pixels, int32_t width, int32_t height, int32_t radius) {
  const TentScale across(radius, width), down(radius, height);
  std::vector<char> memory(BlurScratch::bytes(width, height));
  BlurScratch scratch(width, height, memory.data());
  const size_t count = static_cast<size_t>(width);
  PixelRun run{};
  BlurLine line(width, radius);
  for (int32_t y = 0; y < height; ++y) {
    unpackRun(pixels.data() + 4 * count * static_cast<size_t>(y), count, run);
    EXPECT_TRUE(line.take(run, 0, count));
    line.blurAcross(across, y, scratch);
  }
  std::vector<float> out(pixels.size());
  BlurColumns columns(scratch, down, 0, count, 0);
  for (int32_t y = 0; y < height; ++y) {
    columns.next(run);
    packRun(run, count, out.data() + 4 * count * static_cast<size_t>(y));
  }
  return out;
}

TEST(InstructionSets, BlurToTheSameBits) {
  const std::vector<float> pixels = randomChannels(4 * 19 * 11, 4);
  for (const int32_t radius : {1, 2, 9, 40, 100}) {
    expectSameOnAll([&] { return blurred(pixels, 19, 11, radius); });
    expectSameOnAll([&] {
      std::vector<float> plain = pixels;
      const BlurFrame frame{plain.data(), 19, 17, 11};
      const PlainTentFilter across(radius, frame.width), down(radius, frame.height);
      PlainBlurScratch scratch(frame.width, frame.height);
      blurAcrossPlainly(frame, across, 0, frame.height, scratch);
      blurDownPlainly(scratch, down, 0, frame.height, frame);
      return plain;
    });
  }
}

TEST(InstructionSets, ConvertToTheSameBitsInEveryFormat) {
  const std::vector<float> result = randomChannels(4 * 33, 5);
  for (const WorldFormat format :
       {WorldFormat::Argb8, WorldFormat::Argb16, WorldFormat::ArgbFloat, WorldFormat::Bgra8, WorldFormat::BgraFloat}) {
    for (const size_t count : kCounts) {
      expectSameOnAll([&] {
        std::vector<float> bytes(4 * 33), copy(4 * 33);
        writeWorldRow(format, result.data(), 1, count, bytes.data());
        readWorldRow(format, bytes.data(), count, copy.data());
        bytes.insert(bytes.end(), copy.begin(), copy.end());
        return bytes;
      });
    }
  }
}

}  // namespace
}  // namespace quiltor
