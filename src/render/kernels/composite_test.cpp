#include "render/kernels/composite.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstring>
#include <limits>

#include "render/kernels/blend_modes.h"
#include "render/kernels/streaming.h"

namespace quiltor {
namespace {

using Pixel = std::array<float, 4>;
constexpr size_t kRow = 32;  // pixels: whole vectors of every instruction set

template <size_t kFloats>
std::array<float, kFloats> compositeRow(const void* input, ChannelType type, BlendMode mode, double opacity,
                                        const std::array<float, kFloats>& pattern) {
  PixelRun run{};
  unpackRun(pattern.data(), kFloats / 4, run);
  std::array<float, kFloats> result;
  compositeRun(run, input, type, {.mode = static_cast<int32_t>(mode), .opacity = opacity}, kFloats / 4, result.data());
  return result;
}

Pixel composite(const Pixel& input, const Pixel& pattern, BlendMode mode, double opacity = 1) {
  return compositeRow(input.data(), ChannelType::Float, mode, opacity, pattern);
}

// The mix of one channel of two opaque pixels: nothing of the input shows through.
float mix(float input, float pattern, BlendMode mode) {
  return composite({input, input, input, 1}, {pattern, pattern, pattern, 1}, mode)[0];
}

TEST(Composite, PassesATransparentInputThroughInEveryMode) {
  for (int32_t mode = 0; mode <= static_cast<int32_t>(BlendMode::Count); ++mode) {
    for (const float alpha : {0.0f, -0.5f}) {
      const Pixel input{0.2f, -3, 7, alpha};
      EXPECT_EQ(composite(input, {0.9f, 0.8f, 0.1f, 0.6f}, static_cast<BlendMode>(mode), 0.5), input) << mode;
    }
  }
}

TEST(Composite, NormalTakesThePatternsColourAndSquaresTheInputsAlpha) {
  EXPECT_EQ(composite({0.1f, 0.2f, 0.3f, 0.5f}, {0.75f, 0.5f, 0.25f, 1}, BlendMode::Normal),
            (Pixel{0.75f, 0.5f, 0.25f, 0.25f}));
}

TEST(Composite, OpacityZeroKeepsTheColourButNotTheAlpha) {
  const Pixel out = composite({0.5f, 0.25f, 1, 0.5f}, {0, 0, 0, 1}, BlendMode::Multiply, 0);
  EXPECT_EQ(out, (Pixel{0.5f, 0.25f, 1, 0.5f}));  // (1 - 1) * 0.5 + 1, times the input's 0.5
  EXPECT_EQ(composite({0.5f, 0.25f, 1, 0.5f}, {0, 0, 0, 1}, BlendMode::Normal, 0)[3], 0.25f);
}

TEST(Composite, StencilsTakeTheirAlphaFromThePatternUpToTheInputs) {
  const Pixel input{0.1f, 0.2f, 0.3f, 0.5f};
  EXPECT_EQ(composite(input, {1, 1, 1, 0.25f}, BlendMode::StencilAlpha), (Pixel{0.1f, 0.2f, 0.3f, 0.125f}));
  EXPECT_EQ(composite(input, {1, 1, 1, 0.75f}, BlendMode::StencilAlpha), (Pixel{0.1f, 0.2f, 0.3f, 0.25f}));
  EXPECT_EQ(composite(input, {1, 1, 1, 0.75f}, BlendMode::SilhouetteAlpha), (Pixel{0.1f, 0.2f, 0.3f, 0.125f}));
  // 0.375 * 0.5 + 0.5 * 0.25 + 0.125 * 0.5
  EXPECT_EQ(composite(input, {0.5f, 0.25f, 0.5f, 1}, BlendMode::StencilLuma)[3], 0.1875f);
  EXPECT_EQ(composite(input, {0.5f, 0.25f, 0.5f, 1}, BlendMode::SilhouetteLuma)[3], 0.25f);
  EXPECT_EQ(composite(input, {4, 4, 4, 1}, BlendMode::SilhouetteLuma)[3], 0);
}

TEST(Composite, ColorDodgeIsOneAtAWhiteInputAndLimitedBelowIt) {
  EXPECT_EQ(mix(1, 0, BlendMode::ColorDodge), 1);
  EXPECT_EQ(mix(0.75f, 0.5f, BlendMode::ColorDodge), 1);
  EXPECT_EQ(mix(0.5f, 0.25f, BlendMode::ColorDodge), 0.5f);
}

TEST(Composite, ColorBurnIsZeroAtABlackInputAndLimitedAboveIt) {
  EXPECT_EQ(mix(0, 1, BlendMode::ColorBurn), 0);
  EXPECT_EQ(mix(0.25f, 0.5f, BlendMode::ColorBurn), 0);
  EXPECT_EQ(mix(0.5f, 0.75f, BlendMode::ColorBurn), 0.5f);
}

TEST(Composite, HardMixIsZeroOrOne) {
  for (int i = 0; i <= 32; ++i) {
    for (int p = 0; p <= 32; ++p) {
      const float m = mix(static_cast<float>(i) / 32, static_cast<float>(p) / 32, BlendMode::HardMix);
      EXPECT_TRUE(m == 0 || m == 1) << i << " " << p;
    }
  }
}

TEST(Composite, CutsAMixAboveOneAndKeepsOneBelowZero) {
  EXPECT_EQ(mix(2, 3, BlendMode::Multiply), 1);
  EXPECT_EQ(mix(-1, 0.5f, BlendMode::Multiply), -0.5f);
}

TEST(Composite, OverlayAsksThePatternAndHardLightTheInput) {
  EXPECT_EQ(mix(0.25f, 0.75f, BlendMode::Overlay), 0.625f);
  EXPECT_EQ(mix(0.75f, 0.25f, BlendMode::Overlay), 0.375f);
  EXPECT_EQ(mix(0.25f, 0.75f, BlendMode::HardLight), 0.375f);
  EXPECT_EQ(mix(0.75f, 0.25f, BlendMode::HardLight), 0.625f);
}

TEST(Composite, AModeBeyondTheLastMixesToBlack) {
  EXPECT_EQ(mix(0.5f, 0.5f, BlendMode::Count), 0);
  EXPECT_EQ(mix(0.5f, 0.5f, static_cast<BlendMode>(-1)), 0);
}

TEST(Composite, AByteOf255IsExactlyOne) {
  const uint8_t input[4] = {255, 0, 51, 255};
  const Pixel out = compositeRow(input, ChannelType::Byte, BlendMode::Lighten, 1, Pixel{0, 0, 0, 0});
  EXPECT_EQ(out, (Pixel{1, 0, 51 * 0.003921569f, 1}));
}

TEST(Composite, ANonFinitePatternHarmsItsOwnPixelOnly) {
  const std::array<float, 8> pattern{std::numeric_limits<float>::quiet_NaN(), 0, 0, 1, 0.5f, 0.5f, 0.5f, 1};
  const std::array<float, 8> inputs{0.5f, 0.5f, 0.5f, 1, 0.5f, 0.5f, 0.5f, 1};
  const std::array<float, 8> row = compositeRow(inputs.data(), ChannelType::Float, BlendMode::Multiply, 1, pattern);
  EXPECT_EQ(row[4], 0.25f);
  EXPECT_EQ(row[7], 1);
}

// What a pixel becomes by itself: its vector's other lanes are transparent then, and take the long way.
template <class Channel>
std::array<float, 4 * kRow> compositeOneByOne(const std::array<Channel, 4 * kRow>& input, ChannelType type,
                                              BlendMode mode, double opacity,
                                              const std::array<float, 4 * kRow>& pattern) {
  std::array<float, 4 * kRow> result;
  for (size_t i = 0; i < result.size(); i += 4) {
    const Pixel over{pattern[i], pattern[i + 1], pattern[i + 2], pattern[i + 3]};
    const Pixel pixel = compositeRow(input.data() + i, type, mode, opacity, over);
    std::copy(pixel.begin(), pixel.end(), result.begin() + static_cast<std::ptrdiff_t>(i));
  }
  return result;
}

template <class Channel>
void expectRowAsItsPixels(const std::array<Channel, 4 * kRow>& input, ChannelType type,
                          const std::array<float, 4 * kRow>& pattern) {
  for (int32_t number = 0; number <= static_cast<int32_t>(BlendMode::Count); ++number) {
    const auto mode = static_cast<BlendMode>(number);
    for (const double opacity : {0.0, 0.7, 1.0, 1.5, -1.0}) {
      const auto row = compositeRow(input.data(), type, mode, opacity, pattern);
      const auto pixels = compositeOneByOne(input, type, mode, opacity, pattern);
      EXPECT_EQ(std::memcmp(row.data(), pixels.data(), sizeof row), 0) << "mode " << number << " at " << opacity;
    }
  }
}

TEST(Composite, DrawsOpaquePixelsTheShortWayToTheSameBits) {
  std::array<uint8_t, 4 * kRow> bytes;
  std::array<float, 4 * kRow> floats, pattern;
  for (size_t i = 0; i < bytes.size(); ++i) {
    const bool isAlpha = i % 4 == 3;
    bytes[i] = isAlpha ? 255 : static_cast<uint8_t>(i % 9 == 0 ? 0 : i * 37);
    floats[i] = isAlpha ? 1.0f : static_cast<float>(i % 11) / 4 - 1;
    pattern[i] = isAlpha ? 1.0f : i % 5 == 0 ? -0.0f : static_cast<float>(i % 7) / 4 - 0.5f;
  }
  floats[0] = -0.0f;
  expectRowAsItsPixels(bytes, ChannelType::Byte, pattern);
  expectRowAsItsPixels(floats, ChannelType::Float, pattern);

  const auto opaquePattern = pattern;
  for (size_t i = 3; i < pattern.size(); i += 8) pattern[i] = 0.25f;
  expectRowAsItsPixels(bytes, ChannelType::Byte, pattern);
  expectRowAsItsPixels(floats, ChannelType::Float, pattern);

  auto translucent = bytes;
  for (size_t i = 3; i < translucent.size(); i += 12) translucent[i] = 254;
  expectRowAsItsPixels(translucent, ChannelType::Byte, opaquePattern);

  floats[5] = std::numeric_limits<float>::infinity();
  floats[4 * kRow - 4] = -std::numeric_limits<float>::infinity();
  expectRowAsItsPixels(floats, ChannelType::Float, opaquePattern);
}

TEST(Composite, StreamsTheSamePixelsToEveryAddress) {
  PixelRun run{};
  std::array<float, 4 * 40> input, plain, room;
  for (size_t i = 0; i < input.size(); ++i) input[i] = static_cast<float>(i % 7) / 7;
  for (size_t i = 0; i < 40; ++i) run.r[i] = run.g[i] = run.b[i] = run.a[i] = static_cast<float>(i) / 40;
  CompositeSettings how{.mode = static_cast<int32_t>(BlendMode::Screen), .opacity = 0.7};
  for (size_t start = 0; start < 16; ++start) {
    const size_t count = 36 - start;
    how.streams = false;
    compositeRun(run, input.data(), ChannelType::Float, how, count, plain.data());
    how.streams = true;
    room.fill(-5);
    compositeRun(run, input.data(), ChannelType::Float, how, count, room.data() + start);
    finishStreaming();
    EXPECT_EQ(std::memcmp(room.data() + start, plain.data(), 4 * count * sizeof(float)), 0) << start;
    EXPECT_EQ(room[start + 4 * count], -5) << start;
  }
}

}  // namespace
}  // namespace quiltor
