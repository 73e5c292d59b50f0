#include "standalone/host/masks/coverage.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <numbers>
#include <numeric>

namespace quiltor::standalone {
namespace {

Outline rectangle(double left, double top, double right, double bottom) {
  return {{left, top}, {right, top}, {right, bottom}, {left, bottom}};
}

// Four curves, as every drawing program makes a circle.
Outline circle(double x, double y, double radius) {
  const double k = radius * 4 / 3 * (std::numbers::sqrt2 - 1);
  return {{x, y - radius, -k, 0, k, 0},
          {x + radius, y, 0, -k, 0, k},
          {x, y + radius, k, 0, -k, 0},
          {x - radius, y, 0, k, 0, -k}};
}

double sum(const std::vector<float>& coverage) { return std::accumulate(coverage.begin(), coverage.end(), 0.0); }

TEST(Coverage, OfARectangleOnPixelBordersIsHard) {
  const auto coverage = coverageOf(rectangle(2, 1, 5, 3), {.width = 7, .height = 4});
  for (std::size_t y = 0; y < 4; ++y) {
    for (std::size_t x = 0; x < 7; ++x) {
      const bool inside = x >= 2 && x < 5 && y >= 1 && y < 3;
      EXPECT_EQ(coverage[y * 7 + x], inside ? 1.0f : 0.0f) << x << ", " << y;
    }
  }
}

TEST(Coverage, OfPartlyCoveredPixelsIsTheirShare) {
  const auto coverage = coverageOf(rectangle(0.25, 0.5, 2.5, 1.75), {.width = 3, .height = 2});
  constexpr float kStep = 1 / 255.0f;
  EXPECT_NEAR(coverage[0], 0.75f * 0.5f, kStep);
  EXPECT_NEAR(coverage[1], 0.5f, kStep);
  EXPECT_NEAR(coverage[2], 0.5f * 0.5f, kStep);
  EXPECT_NEAR(coverage[4], 0.75f, kStep);
}

TEST(Coverage, WithoutAntiAliasingIsAllOrNothing) {
  const auto coverage = coverageOf(circle(10, 10, 7.3), {.width = 20, .height = 20, .antiAliased = false});
  EXPECT_TRUE(std::all_of(coverage.begin(), coverage.end(), [](float c) { return c == 0 || c == 1; }));
  EXPECT_NEAR(sum(coverage), std::numbers::pi * 7.3 * 7.3, 8);
}

class EveryRadius : public testing::TestWithParam<double> {};

TEST_P(EveryRadius, ACircleOfFourCurvesCoversItsArea) {
  const double radius = GetParam();
  const auto size = static_cast<int>(2 * radius + 4);
  const auto coverage = coverageOf(circle(radius + 1.3, radius + 1.6, radius), {.width = size, .height = size});
  const double area = std::numbers::pi * radius * radius;
  EXPECT_NEAR(sum(coverage), area, 0.005 * area);
}

INSTANTIATE_TEST_SUITE_P(Radii, EveryRadius, testing::Values(5.0, 20.5, 100.25));

TEST(Coverage, OfACircleLooksTheSameInAllFourQuarters) {
  const auto coverage = coverageOf(circle(16, 16, 12.4), {.width = 32, .height = 32});
  for (std::size_t y = 0; y < 16; ++y) {
    for (std::size_t x = 0; x < 16; ++x) {
      const float corner = coverage[y * 32 + x];
      EXPECT_NEAR(coverage[y * 32 + 31 - x], corner, 0.04) << x << ", " << y;
      EXPECT_NEAR(coverage[(31 - y) * 32 + x], corner, 0.04) << x << ", " << y;
      EXPECT_NEAR(coverage[x * 32 + y], corner, 0.04) << x << ", " << y;
    }
  }
}

TEST(Coverage, DoesNotDependOnTheDirectionOfThePath) {
  Outline backwards = circle(10, 10, 8);
  std::reverse(backwards.begin(), backwards.end());
  for (PathVertex& vertex : backwards) {
    std::swap(vertex.inX, vertex.outX);
    std::swap(vertex.inY, vertex.outY);
  }
  const CoverageRequest request{.width = 20, .height = 20};
  EXPECT_NEAR(sum(coverageOf(backwards, request)), sum(coverageOf(circle(10, 10, 8), request)), 0.5);
}

TEST(Coverage, OfWhatThePathWindsAroundTwiceIsWhole) {
  Outline twice = rectangle(1, 1, 5, 5);
  const Outline inner = rectangle(2, 2, 4, 4);
  twice.push_back({1, 1});
  twice.insert(twice.end(), inner.begin(), inner.end());
  twice.push_back({2, 2});
  const auto coverage = coverageOf(twice, {.width = 6, .height = 6});
  EXPECT_EQ(coverage[3 * 6 + 3], 1.0f);
}

TEST(Coverage, OfARequestInTheMiddleIsThatPartOfTheWhole) {
  const Outline outline = circle(20, 15, 11);
  const auto whole = coverageOf(outline, {.width = 40, .height = 30, .featherX = 6, .featherY = 3});
  const auto part = coverageOf(outline, {.left = 13, .top = 9, .width = 8, .height = 5, .featherX = 6, .featherY = 3});
  for (std::size_t y = 0; y < 5; ++y) {
    for (std::size_t x = 0; x < 8; ++x) {
      EXPECT_NEAR(part[y * 8 + x], whole[(y + 9) * 40 + x + 13], 1e-5) << x << ", " << y;
    }
  }
}

TEST(Coverage, KnowsNoEdgeWhereOnlyTheRequestEnds) {
  const auto coverage =
      coverageOf(rectangle(-100, -100, 100, 100), {.width = 9, .height = 7, .featherX = 40, .featherY = 40});
  EXPECT_TRUE(std::all_of(coverage.begin(), coverage.end(), [](float c) { return std::abs(c - 1) < 1e-6f; }));
}

TEST(Coverage, ReachesIntoTheRequestFromAPathOutsideIt) {
  const Outline outside = rectangle(-10, -10, 0, 30);
  EXPECT_EQ(sum(coverageOf(outside, {.width = 20, .height = 10})), 0);
  const auto coverage = coverageOf(outside, {.width = 20, .height = 10, .featherX = 8});
  EXPECT_GT(coverage[0], 0.3f);
  EXPECT_LT(coverage[0], 0.5f);
  EXPECT_EQ(coverage[5], 0.0f);
}

TEST(Coverage, OfAPathFarAwayOrWithoutVerticesIsNone) {
  EXPECT_EQ(sum(coverageOf(rectangle(500, 500, 600, 600), {.width = 8, .height = 8, .featherX = 20})), 0);
  EXPECT_EQ(sum(coverageOf({}, {.width = 8, .height = 8})), 0);
  EXPECT_TRUE(coverageOf(rectangle(0, 0, 9, 9), {}).empty());
}

TEST(Coverage, FeatheredAlongOneAxisKeepsTheOtherHard) {
  const auto coverage = coverageOf(rectangle(10, 10, 30, 20), {.width = 40, .height = 30, .featherX = 12});
  EXPECT_EQ(coverage[9 * 40 + 20], 0.0f);
  EXPECT_EQ(coverage[10 * 40 + 20], 1.0f);
  EXPECT_GT(coverage[15 * 40 + 9], 0.3f);
  EXPECT_LT(coverage[15 * 40 + 9], 0.5f);
}

TEST(Coverage, KeepsItsAreaWhenFeathered) {
  const auto coverage = coverageOf(circle(50, 40, 20), {.width = 100, .height = 80, .featherX = 15, .featherY = 9});
  EXPECT_NEAR(sum(coverage), std::numbers::pi * 400, 0.005 * std::numbers::pi * 400);
}

TEST(Scaled, MovesCornersAndHandlesAlike) {
  const Outline half = scaled({{10, 20, -4, 6, 8, -2}}, 0.5, 0.25);
  EXPECT_EQ(half[0].x, 5);
  EXPECT_EQ(half[0].y, 5);
  EXPECT_EQ(half[0].inX, -2);
  EXPECT_EQ(half[0].inY, 1.5);
  EXPECT_EQ(half[0].outX, 4);
  EXPECT_EQ(half[0].outY, -0.5);
}

}  // namespace
}  // namespace quiltor::standalone
