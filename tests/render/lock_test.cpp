// Lock Pattern: the pattern follows the layer's own transform.
#include <array>
#include <string>

#include "tests/render/hand_case.h"
#include "tests/render/render_test.h"

namespace quiltor::render_tests {
namespace {

class LockRender : public RenderTest {
 protected:
  static RenderCase ramp() {
    RenderCase frame = overlaid(filled(4, 1, {0, 0, 0, 1}), rowOf({grey(0.1), grey(0.2), grey(0.3), grey(0.4)}));
    frame.lock = true;
    return frame;
  }
  void expectRamp(const RenderCase& frame, const std::array<double, 4>& expected) {
    const World picture = drawn(frame);
    for (int x = 0; x < 4; ++x) expectPixel(picture, x, 0, grey(expected[static_cast<size_t>(x)]));
  }
};

TEST_F(LockRender, ChangesNothingForANeutralTransform) {
  RenderCase frame = ramp();
  frame.transform = {};
  expectRamp(frame, {0.1, 0.2, 0.3, 0.4});
}

TEST_F(LockRender, IgnoresTheTransformWhenOff) {
  RenderCase frame = ramp();
  frame.lock = false;
  frame.transform = {.positionX = 2, .scaleX = 50, .rotation = 33};
  expectRamp(frame, {0.1, 0.2, 0.3, 0.4});
}

TEST_F(LockRender, MovesThePatternWithTheLayersPosition) {
  RenderCase frame = ramp();
  frame.transform.positionX = 1;
  expectRamp(frame, {0.4, 0.1, 0.2, 0.3});
}

TEST_F(LockRender, MovesThePatternAgainstTheAnchor) {
  RenderCase frame = ramp();
  frame.transform.anchorX = 1;
  expectRamp(frame, {0.2, 0.3, 0.4, 0.1});
}

TEST_F(LockRender, TakesPositionAndAnchorInFullResolution) {
  RenderCase frame = ramp();
  frame.downsampleX = {1, 2};
  frame.transform.positionX = 6;
  frame.transform.anchorX = 4;
  expectRamp(frame, {0.4, 0.1, 0.2, 0.3});
}

TEST_F(LockRender, StretchesThePatternWithTheLayersScale) {
  RenderCase frame = ramp();
  frame.transform.scaleX = 200;
  expectRamp(frame, {0.1, 0.15, 0.2, 0.25});
  frame.transform.scaleX = 50;
  expectRamp(frame, {0.1, 0.3, 0.1, 0.3});
}

TEST_F(LockRender, MirrorsThePatternForANegativeScale) {
  RenderCase frame = ramp();
  frame.transform.scaleX = -100;
  expectRamp(frame, {0.1, 0.4, 0.3, 0.2});
}

TEST_F(LockRender, TurnsThePatternWithTheLayer) {
  World pattern = filled(3, 3, {0, 0, 0, 1});
  pattern.set(2, 1, {1, 1, 1, 1});
  RenderCase frame = overlaid(filled(3, 3, {0, 0, 0, 1}), pattern);
  frame.lock = true;
  frame.transform = {.positionX = 1, .positionY = 1, .anchorX = 1, .anchorY = 1, .rotation = 90};
  const World picture = drawn(frame);
  // Right of the centre before, below it now; the angle is a quarter turn to seven digits.
  EXPECT_NEAR(picture.at(1, 2).r, 1, 1e-5);
  EXPECT_NEAR(picture.at(2, 1).r, 0, 1e-5);
}

TEST_F(LockRender, ReadsTheTransformAtTheTimeOfTheFrame) {
  RenderCase frame = ramp();
  host.options().currentTime = 50;
  host.options().timeScale = 25;
  host.options().transformAt = [](double seconds) { return standalone::LayerTransform{.positionX = seconds}; };
  expectRamp(frame, {0.3, 0.4, 0.1, 0.2});
}

TEST_F(LockRender, ShowsTheFirstTexelWhereCoordinatesAreNotFinite) {
  for (const bool acrossX : {true, false}) {
    RenderCase frame = ramp();
    (acrossX ? frame.transform.scaleX : frame.transform.scaleY) = 0;
    frame.transform.rotation = 20;
    frame.rotation = fixed(20);
    for (const int tile : {kTiled, kMirrored}) {
      frame.tileMode = tile;
      expectRamp(frame, {0.1, 0.1, 0.1, 0.1});
    }
  }
}

TEST_F(LockRender, IsOutsideASingleTileWhereCoordinatesAreNotFinite) {
  RenderCase frame = ramp();
  frame.transform.scaleX = 0;
  frame.tileMode = kSingle;
  expectRamp(frame, {0, 0, 0, 0});
}

}  // namespace
}  // namespace quiltor::render_tests
