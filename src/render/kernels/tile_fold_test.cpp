#include "render/kernels/tile_fold.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <limits>
#include <random>
#include <vector>

#include "render/kernels/sample.h"

namespace quiltor {
namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNan = std::numeric_limits<double>::quiet_NaN();

// The folds as loops, one step at a time.
double tiledByLoop(double x, int32_t size) {
  while (x < 0) x += size;
  while (x >= size) x -= size;
  return x;
}

double mirroredByFormula(double x, int32_t size) {
  x = std::fmod(std::fabs(x), 2.0 * size);
  if (x >= size) x = 2.0 * size - x;
  if (x < 0) x = 0;
  if (x >= size) x = size - 1;
  return x;
}

uint64_t bits(double x) { return std::bit_cast<uint64_t>(x); }

std::vector<double> hardCoordinates(int32_t size) {
  std::vector<double> places;
  const double width = size;
  for (const double turns : {0.0, 1.0, 2.0, 3.0, 7.0, 1000.0, 65537.0}) {
    for (const double part : {0.0, 0.25, 0.5, 1.0 / 3}) {
      const double place = turns * width + part * width;
      for (const double near : {place, std::nextafter(place, -kInfinity), std::nextafter(place, kInfinity)}) {
        places.insert(places.end(), {near, -near});
      }
    }
  }
  places.insert(places.end(), {-0.0, 5e-324, -5e-324, 1e-300, -1e-300, -1e-17, 0x1p-53, -0x1p-53});
  return places;
}

class TileFold : public testing::TestWithParam<int32_t> {};

TEST_P(TileFold, GivesTheBitsOfTheLoopAroundEveryTileEdge) {
  const int32_t size = GetParam();
  for (const double x : hardCoordinates(size)) {
    EXPECT_EQ(bits(foldTiled(x, size)), bits(tiledByLoop(x, size))) << "x " << x;
    EXPECT_EQ(bits(foldMirrored(x, size)), bits(mirroredByFormula(x, size))) << "x " << x;
  }
}

TEST_P(TileFold, GivesTheBitsOfTheLoopForRandomPlacesOfEveryMagnitude) {
  const int32_t size = GetParam();
  std::mt19937_64 random(static_cast<uint64_t>(size));
  std::uniform_real_distribution<double> mantissa(1, 2);
  for (int i = 0; i < 20000; ++i) {
    // Larger places make the loop too slow to be asked.
    const int exponent = static_cast<int>(random() % 80) - 60;
    const double x = std::ldexp(mantissa(random), exponent) * (random() % 2 ? 1 : -1);
    ASSERT_EQ(bits(foldTiled(x, size)), bits(tiledByLoop(x, size))) << "x " << x;
    ASSERT_EQ(bits(foldMirrored(x, size)), bits(mirroredByFormula(x, size))) << "x " << x;
  }
}

TEST_P(TileFold, OfAWholeRowIsThatOfEachPlace) {
  const int32_t size = GetParam();
  std::vector<double> places = hardCoordinates(size);
  places.insert(places.end(), {kInfinity, -kInfinity, kNan, 0x1p60, -0x1p60, 1e300});
  for (const TileMode mode : {TileMode::Tiled, TileMode::Mirrored}) {
    std::vector<double> row = places;
    foldRow(mode, size, row.size(), row.data());
    for (size_t i = 0; i < row.size(); ++i) {
      const double alone = mode == TileMode::Tiled ? foldTiled(places[i], size) : foldMirrored(places[i], size);
      EXPECT_EQ(row[i], alone) << "x " << places[i];  // a zero may lose its sign: it is the same place
    }
  }
}

INSTANTIATE_TEST_SUITE_P(Sizes, TileFold, testing::Values(1, 2, 3, 5, 7, 64, 100, 1920, 30001));

// Beyond 2 to the 53rd each step of the loop is rounded; tiles that are almost as large as the place keep it short.
TEST(TileFoldOfHugePlaces, GivesTheBitsOfTheLoopWhereEachStepIsRounded) {
  std::mt19937_64 random(53);
  std::uniform_real_distribution<double> mantissa(1, 2);
  for (int i = 0; i < 60; ++i) {
    const auto size = static_cast<int32_t>(0x7FFFFFFF - random() % 1000000);
    const double x = std::ldexp(mantissa(random), 53 + static_cast<int>(random() % 3)) * (random() % 2 ? 1 : -1);
    ASSERT_EQ(bits(foldTiled(x, size)), bits(tiledByLoop(x, size))) << "x " << x << " size " << size;
  }
}

TEST(TileFoldOfHugePlaces, IsZeroWhereTheLoopWouldNeverEnd) {
  EXPECT_EQ(foldTiled(1e300, 100), 0);
  EXPECT_EQ(foldTiled(-1e300, 100), 0);
}

TEST(TileFoldOfHugePlaces, IsZeroForWhatIsNotFinite) {
  for (const double x : {kInfinity, -kInfinity, kNan}) {
    EXPECT_EQ(foldTiled(x, 7), 0);
    EXPECT_EQ(foldMirrored(x, 7), 0);
  }
}

TEST(TileFoldOfHugePlaces, LiesInsideTheTileWhateverThePlace) {
  std::mt19937_64 random(9);
  for (int i = 0; i < 20000; ++i) {
    const double x = std::bit_cast<double>(random());
    const auto size = static_cast<int32_t>(1 + random() % 5000);
    EXPECT_THAT(foldTiled(x, size), testing::AllOf(testing::Ge(0), testing::Lt(size))) << x;
    EXPECT_THAT(foldMirrored(x, size), testing::AllOf(testing::Ge(0), testing::Lt(size))) << x;
  }
}

}  // namespace
}  // namespace quiltor
