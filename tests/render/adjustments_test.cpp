// Inversion, tint and blur of the pattern, with numbers worked out by hand.
#include <cmath>
#include <limits>

#include "tests/render/hand_case.h"
#include "tests/render/render_test.h"

namespace quiltor::render_tests {
namespace {

class AdjustmentsRender : public RenderTest {
 protected:
  // A pattern of one colour, shown as it is.
  static RenderCase flat(const Rgba& color) { return overlaid(filled(2, 2, grey(0)), filled(2, 2, color)); }

  // One white pixel in the middle of black, as large as the input.
  static RenderCase dot(int size) {
    World pattern = filled(size, size, grey(0));
    pattern.set(size / 2, size / 2, grey(1));
    return overlaid(filled(size, size, grey(0)), pattern);
  }
};

constexpr PF_Pixel kWhite{255, 255, 255, 255};

TEST_F(AdjustmentsRender, InvertTurnsColoursRoundAndLeavesAlpha) {
  RenderCase frame = flat({0.25, 1, 1.5, 0.5});
  frame.invert = true;
  expectAll(drawn(frame), {0.75, 0, -0.5, 0.5});
}

TEST_F(AdjustmentsRender, AFullWhiteTintShowsTheBrightnessAsGrey) {
  RenderCase frame = flat({0.2, 0.4, 0.8, 0.5});
  frame.tint = kWhite;
  frame.tintOpacity = 100;
  expectAll(drawn(frame), {0.375, 0.375, 0.375, 0.5});
}

TEST_F(AdjustmentsRender, ATintScalesItsColourByTheBrightness) {
  RenderCase frame = flat({0.2, 0.4, 0.8, 1});
  frame.tint = {255, 255, 51, 0};
  frame.tintOpacity = 100;
  expectAll(drawn(frame), {0.375, 0.075, 0, 1});
}

TEST_F(AdjustmentsRender, TintOpacityMixesTheTintIn) {
  RenderCase frame = flat({0.2, 0.4, 0.8, 1});
  frame.tint = {255, 255, 51, 0};
  frame.tintOpacity = 25;
  expectAll(drawn(frame), {0.24375, 0.31875, 0.6, 1});
}

TEST_F(AdjustmentsRender, NoTintOpacityLeavesTheColour) {
  RenderCase frame = flat({0.2, 0.4, 0.8, 1});
  frame.tint = kWhite;
  expectAll(drawn(frame), {0.2, 0.4, 0.8, 1});
}

TEST_F(AdjustmentsRender, TheTintsBrightnessIsThatOfTheInvertedColour) {
  RenderCase frame = flat({1, 0, 0, 1});
  frame.invert = true;
  frame.tint = kWhite;
  frame.tintOpacity = 100;
  expectAll(drawn(frame), grey(0.625));
}

TEST_F(AdjustmentsRender, BlurOneChangesNothing) {
  RenderCase frame = dot(5);
  const World plain = drawn(frame);
  for (const double amount : {0.5, 0.99, 1.0, 1.99}) {
    frame.blur = amount;
    EXPECT_EQ(drawn(frame).packed(), plain.packed()) << amount;
  }
}

TEST_F(AdjustmentsRender, BlurTwoWeighsNeighboursByHalf) {
  RenderCase frame = dot(5);
  for (const double amount : {2.0, 2.9}) {
    frame.blur = amount;
    const World picture = drawn(frame);
    constexpr double kWeights[] = {0, 0.25, 0.5, 0.25, 0};
    for (int y = 0; y < 5; ++y)
      for (int x = 0; x < 5; ++x) expectPixel(picture, x, y, grey(kWeights[x] * kWeights[y]));
  }
}

TEST_F(AdjustmentsRender, BlurThreeFallsOffByThirds) {
  RenderCase frame = dot(9);
  frame.blur = 3;
  const World picture = drawn(frame);
  constexpr double kWeights[] = {0, 0, 1 / 9.0, 2 / 9.0, 3 / 9.0, 2 / 9.0, 1 / 9.0, 0, 0};
  for (int y = 0; y < 9; ++y)
    for (int x = 0; x < 9; ++x) expectPixel(picture, x, y, grey(kWeights[x] * kWeights[y]));
}

TEST_F(AdjustmentsRender, BlurNeitherDarkensNorWrapsAtTheEdge) {
  // Two columns: 1 and 0. The left one keeps 1 of a weight of 1.5, the right one gets 0.5 of it.
  RenderCase frame = overlaid(filled(2, 3, grey(0)), filled(2, 3, grey(0)));
  for (int y = 0; y < 3; ++y) frame.patternLayer.set(0, y, grey(1));
  frame.blur = 2;
  const World picture = drawn(frame);
  for (int y = 0; y < 3; ++y) {
    expectPixel(picture, 0, y, grey(0.6666667));
    expectPixel(picture, 1, y, grey(0.3333333));
  }
  RenderCase even = flat({0.2, 0.4, 0.8, 1});
  even.blur = 100;
  expectAll(drawn(even), {0.2, 0.4, 0.8, 1});
}

TEST_F(AdjustmentsRender, BlurDoesNotReachThePixelsAtItsFullRadius) {
  const double infinity = std::numeric_limits<double>::infinity();
  RenderCase frame = overlaid(filled(6, 1, grey(0)), rowOf({grey(1), grey(1), grey(1), grey(1), grey(1), grey(1)}));
  frame.patternLayer.set(5, 0, grey(infinity));
  frame.blur = 3;
  const World picture = drawn(frame);
  // Sampling carries the infinite pixel into its left neighbour; three further left is a distance of the radius.
  for (int x = 0; x < 2; ++x) expectPixel(picture, x, 0, grey(1));
  for (int x = 2; x < 6; ++x) EXPECT_FALSE(std::isfinite(picture.at(x, 0).r)) << x;
}

TEST_F(AdjustmentsRender, BlurKeepsTheEdgesOfAlphaHard) {
  RenderCase frame = overlaid(filled(4, 1, grey(0)), rowOf({grey(1, 0), grey(1, 0), grey(0, 1), grey(0, 1)}));
  frame.blur = 2;
  const World picture = drawn(frame);
  expectPixel(picture, 0, 0, grey(1, 0));
  expectPixel(picture, 1, 0, grey(0.75, 0));
  expectPixel(picture, 2, 0, grey(0.25, 1));
  expectPixel(picture, 3, 0, grey(0, 1));
}

}  // namespace
}  // namespace quiltor::render_tests
