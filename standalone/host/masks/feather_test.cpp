#include "standalone/host/masks/feather.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <vector>

namespace quiltor::standalone {
namespace {

constexpr std::size_t kLength = 200, kEdge = 100;

// Covered up to the edge, uncovered from there on.
std::vector<float> featheredEdge(double feather) {
  std::vector<float> line(kLength);
  std::fill_n(line.begin(), kEdge, 1.0f);
  featherLine(line, feather);
  return line;
}

class EveryFeather : public testing::TestWithParam<double> {};

TEST_P(EveryFeather, TurnsAnEdgeIntoARampOfItsWidth) {
  const double feather = GetParam();
  const std::vector<float> line = featheredEdge(feather);
  // Nothing lies before the line's first pixels, so those are feathered too.
  const auto begin = static_cast<std::size_t>(featherReach(feather)) + 1;
  for (std::size_t i = begin; i < kLength; ++i) {
    const double distance = static_cast<double>(i) + 0.5 - kEdge;
    const double beyond = feather / 2 + 1;
    if (std::abs(distance) > beyond) {
      EXPECT_NEAR(line[i], distance < 0 ? 1 : 0, 1e-6) << i;
    }
    // The ramp of two averages: half a parabola on each side of the edge.
    const double t = std::clamp(0.5 - distance / feather, 0.0, 1.0);
    const double ramp = t < 0.5 ? 2 * t * t : 1 - 2 * (1 - t) * (1 - t);
    EXPECT_NEAR(line[i], ramp, 1 / feather / feather + 1e-6) << i;
    EXPECT_LE(line[i], line[i - 1] + 1e-6f) << i;
  }
  EXPECT_NEAR(line[kEdge - 1] + line[kEdge], 1, 1e-6);
}

INSTANTIATE_TEST_SUITE_P(Widths, EveryFeather, testing::Values(3.0, 10.0, 25.5, 80.0));

TEST(Feather, OfNothingChangesNothing) {
  for (const double feather : {0.0, -5.0}) {
    const std::vector<float> line = featheredEdge(feather);
    EXPECT_EQ(line[kEdge - 1], 1.0f);
    EXPECT_EQ(line[kEdge], 0.0f);
    EXPECT_EQ(featherReach(feather), 0);
  }
}

TEST(Feather, KeepsTheSumOfWhatIsCovered) {
  std::vector<float> line(kLength);
  line[90] = 0.25f;
  std::fill_n(line.begin() + 91, 8, 1.0f);
  featherLine(line, 30);
  double sum = 0;
  for (const float value : line) sum += static_cast<double>(value);
  EXPECT_NEAR(sum, 8.25, 1e-4);
}

TEST(Feather, StaysWithinItsReach) {
  for (const double feather : {1.0, 2.5, 7.0, 40.0}) {
    std::vector<float> line(kLength);
    line[kEdge] = 1;
    featherLine(line, feather);
    const auto reach = static_cast<std::size_t>(featherReach(feather));
    EXPECT_EQ(line[kEdge - reach - 1], 0.0f) << feather;
    EXPECT_EQ(line[kEdge + reach + 1], 0.0f) << feather;
  }
}

}  // namespace
}  // namespace quiltor::standalone
