#include "render/mask_row.h"

#include <gtest/gtest.h>

#include <array>

namespace quiltor {
namespace {

// Two pixels of a matte, alpha first: covered by 0 and by 51 of 255.
constexpr std::array<uint8_t, 8> kMatte{0, 9, 9, 9, 51, 9, 9, 9};

TEST(MaskRow, OutsideTheMaskIsTheTransparentInput) {
  const std::array<uint8_t, 4> input{200, 10, 20, 30};
  std::array<uint8_t, 4> output{255, 100, 110, 120};
  limitRow(WorldFormat::Argb8, input.data(), 1, kMatte.data(), 1, 1, output.data());
  EXPECT_EQ(output, (std::array<uint8_t, 4>{0, 10, 20, 30}));
}

TEST(MaskRow, InsideTheMaskIsTheOutput) {
  constexpr std::array<uint8_t, 4> kInside{255, 0, 0, 0};
  const std::array<uint16_t, 4> input{1, 2, 3, 4}, drawn{32768, 100, 110, 32767};
  std::array<uint16_t, 4> output = drawn;
  limitRow(WorldFormat::Argb16, input.data(), 1, kInside.data(), 1, 1, output.data());
  EXPECT_EQ(output, drawn);
}

TEST(MaskRow, ThePartlyCoveredIsMixedAndCutToWholeNumbers) {
  const std::array<uint8_t, 4> input{200, 10, 20, 30};
  std::array<uint8_t, 4> output{255, 104, 110, 121};
  limitRow(WorldFormat::Argb8, input.data(), 1, kMatte.data() + 4, 1, 1, output.data());
  // A fifth of the output: 51; and 8 + 20.8, 16 + 22, 24 + 24.2.
  EXPECT_EQ(output, (std::array<uint8_t, 4>{51, 28, 38, 48}));
}

TEST(MaskRow, FloatsAreNotCut) {
  const std::array<float, 4> input{1, 0.5f, -1, 4};
  std::array<float, 4> output{1, 0.25f, 3, 0};
  limitRow(WorldFormat::ArgbFloat, input.data(), 1, kMatte.data() + 4, 1, 1, output.data());
  const float m = 51 * 0.003921569f;
  EXPECT_EQ(output, (std::array<float, 4>{m, 0.5f * (1 - m) + 0.25f * m, -1 * (1 - m) + 3 * m, 4 * (1 - m)}));
}

TEST(MaskRow, AlphaIsLastInTheVideoEditorsWorlds) {
  const std::array<uint8_t, 4> input{10, 20, 30, 200};
  std::array<uint8_t, 4> output{100, 110, 120, 255};
  limitRow(WorldFormat::Bgra8, input.data(), 1, kMatte.data(), 1, 1, output.data());
  EXPECT_EQ(output, (std::array<uint8_t, 4>{10, 20, 30, 0}));
}

TEST(MaskRow, BeyondTheMatteLiesItsLastPixelAndBeyondTheInputNothing) {
  const std::array<uint8_t, 4> input{255, 50, 50, 50};
  std::array<uint8_t, 12> output;
  output.fill(100);
  limitRow(WorldFormat::Argb8, input.data(), 1, kMatte.data(), 2, 3, output.data());
  EXPECT_EQ(output, (std::array<uint8_t, 12>{0, 50, 50, 50, 20, 20, 20, 20, 20, 20, 20, 20}));
}

}  // namespace
}  // namespace quiltor
