#include "standalone/host/services/world.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <utility>
#include <vector>

namespace quiltor::standalone {
namespace {

constexpr WorldFormat kFormats[] = {WorldFormat::Argb8, WorldFormat::Argb16, WorldFormat::ArgbFloat, WorldFormat::Bgra8,
                                    WorldFormat::BgraFloat};

TEST(World, KeepsAlphaFirstForTheCompositingHostAndBlueFirstForTheVideoEditor) {
  World argb(WorldFormat::Argb8, 1, 1);
  argb.set(0, 0, {1, 0.4, 0, 0.2});
  EXPECT_EQ(argb.packed(), (std::vector<unsigned char>{51, 255, 102, 0}));
  World bgra(WorldFormat::Bgra8, 1, 1);
  bgra.set(0, 0, {1, 0.4, 0, 0.2});
  EXPECT_EQ(bgra.packed(), (std::vector<unsigned char>{0, 102, 255, 51}));
}

TEST(World, HoldsWhiteAs32768InSixteenBits) {
  World world(WorldFormat::Argb16, 1, 1);
  world.set(0, 0, {1, 0.5, 2, -1});
  const auto* channels = reinterpret_cast<const A_u_short*>(world.row(0));
  EXPECT_EQ(channels[0], 0);
  EXPECT_EQ(channels[1], 32768);
  EXPECT_EQ(channels[2], 16384);
  EXPECT_EQ(channels[3], 32768);
}

TEST(World, DoesNotClampFloat) {
  World world(WorldFormat::ArgbFloat, 1, 1);
  world.set(0, 0, {2.5, -1, 0, 1});
  EXPECT_EQ(world.at(0, 0).r, 2.5);
  EXPECT_EQ(world.at(0, 0).g, -1);
}

TEST(World, StoresNotANumberAsZeroInIntegers) {
  World world(WorldFormat::Argb8, 1, 1);
  world.set(0, 0, {std::numeric_limits<double>::quiet_NaN(), 1, 1, 1});
  EXPECT_EQ(world.at(0, 0).r, 0);
}

TEST(World, KeepsEightBitValuesThroughEveryFormat) {
  World bytes(WorldFormat::Argb8, 256, 1);
  for (int x = 0; x < 256; ++x) bytes.set(x, 0, {x / 255.0, (255 - x) / 255.0, 0, 1});
  for (const WorldFormat format : kFormats) {
    EXPECT_EQ(bytes.converted(format).converted(WorldFormat::Argb8).packed(), bytes.packed());
  }
}

TEST(World, SetsAndCopiesRowsOfEightBitsAsItDoesPixels) {
  constexpr int kWidth = 64, kHeight = 2;
  std::vector<unsigned char> rgba(std::size_t{4} * kWidth);
  for (std::size_t i = 0; i < rgba.size(); ++i) rgba[i] = static_cast<unsigned char>(i);
  for (const WorldFormat format : {WorldFormat::Argb8, WorldFormat::Bgra8}) {
    World rows(format, kWidth, kHeight, {.paddingBytes = 3, .bottomUp = true}), pixels(format, kWidth, kHeight);
    for (int y = 0; y < kHeight; ++y) {
      rows.setRow8(y, rgba.data());
      for (int x = 0; x < kWidth; ++x) {
        const unsigned char* const from = rgba.data() + std::ptrdiff_t{4} * x;
        pixels.set(x, y, {from[0] / 255.0, from[1] / 255.0, from[2] / 255.0, from[3] / 255.0});
      }
      std::vector<unsigned char> back(rgba.size());
      rows.copyRow8(y, back.data());
      EXPECT_EQ(back, rgba);
    }
    EXPECT_EQ(rows.packed(), pixels.packed());
    EXPECT_EQ(rows.damage(), std::nullopt);
  }
}

TEST(World, ThatWasMovedFromHasNoPixels) {
  World first(WorldFormat::Argb8, 3, 2);
  const World second = std::move(first);
  EXPECT_EQ(second.width(), 3);
  EXPECT_EQ(first.width(), 0);  // NOLINT(bugprone-use-after-move): what is left of it is meant
  EXPECT_EQ(first.height(), 0);
  EXPECT_EQ(first.record().data, nullptr);
  EXPECT_EQ(first.packed(), std::vector<unsigned char>());
}

TEST(World, HasNegativeRowBytesWhenItIsBottomUp) {
  World world(WorldFormat::Argb8, 2, 3, {.paddingBytes = 5, .bottomUp = true});
  EXPECT_EQ(world.record().rowbytes, -(2 * 4 + 5));
  world.clear();
  world.set(1, 2, {1, 1, 1, 1});
  EXPECT_EQ(world.converted(WorldFormat::Argb8).at(1, 2).r, 1);
  EXPECT_EQ(world.damage(), std::nullopt);
}

TEST(World, StartsWithPixelsThatAreNotZero) {
  const World world(WorldFormat::Argb8, 3, 3);
  for (const unsigned char byte : world.packed()) EXPECT_NE(byte, 0);
}

class WorldDamage : public testing::TestWithParam<bool> {};

TEST_P(WorldDamage, NamesEveryByteOutsideThePixels) {
  const int width = 3, height = 4, padding = 7;
  const RowLayout rows{.paddingBytes = padding, .bottomUp = GetParam()};
  const int stride = width * 4 + padding;
  for (int y = -2; y < height + 2; ++y) {
    for (int x = 0; x < stride; ++x) {
      World world(WorldFormat::Argb8, width, height, rows);
      world.row(y)[x] ^= 0x10;
      const bool inside = y >= 0 && y < height && x < width * 4;
      EXPECT_EQ(world.damage().has_value(), !inside) << "row " << y << ", byte " << x;
    }
  }
}

INSTANTIATE_TEST_SUITE_P(Rows, WorldDamage, testing::Bool(),
                         [](const auto& test) { return test.param ? "BottomUp" : "TopDown"; });

TEST(World, SaysWhereItWasDamaged) {
  World world(WorldFormat::Argb8, 3, 4, {.paddingBytes = 7});
  world.row(2)[13] ^= 1;
  EXPECT_EQ(world.damage(), "row 2 of 4, byte 13 of 12");
}

TEST(World, CropsInLayerCoordinates) {
  World world(WorldFormat::Argb8, 4, 4);
  world.clear();
  world.set(2, 1, {1, 0, 0, 1});
  world.setOrigin(-10, 20);
  const World part = world.cropped({-8, 21, 100, 23});
  EXPECT_EQ(part.width(), 2);
  EXPECT_EQ(part.height(), 2);
  EXPECT_EQ(part.record().origin_x, -8);
  EXPECT_EQ(part.record().origin_y, 21);
  EXPECT_EQ(part.at(0, 0).r, 1);
}

TEST(World, CroppedBesideItselfIsEmptyAndHasNoData) {
  const World part = World(WorldFormat::Argb8, 4, 4).cropped({9, 9, 12, 12});
  EXPECT_EQ(part.width(), 0);
  EXPECT_EQ(part.record().data, nullptr);
}

TEST(World, CopiesOwnTheirPixels) {
  World world(WorldFormat::ArgbFloat, 2, 2, {.paddingBytes = 3, .bottomUp = true});
  world.clear();
  world.setOrigin(5, 6);
  World copy = world;
  copy.set(0, 0, {1, 1, 1, 1});
  EXPECT_EQ(world.at(0, 0).r, 0);
  EXPECT_EQ(copy.record().origin_x, 5);
  EXPECT_EQ(copy.record().rowbytes, world.record().rowbytes);
}

TEST(World, TellsItsFormatFromACopyOfTheRecord) {
  for (const WorldFormat format : kFormats) {
    const PF_EffectWorld record = World(format, 1, 1).record();
    EXPECT_EQ(formatOf(record), format);
  }
  EXPECT_EQ(formatOf(PF_EffectWorld{}), std::nullopt);
}

TEST(World, MarksOnlySixteenBitsAsDeep) {
  for (const WorldFormat format : kFormats) {
    const bool deep = (World(format, 1, 1).record().world_flags & PF_WorldFlag_DEEP) != 0;
    EXPECT_EQ(deep, format == WorldFormat::Argb16);
  }
}

}  // namespace
}  // namespace quiltor::standalone
