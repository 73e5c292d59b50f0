#pragma once

#include <set>
#include <string>
#include <utility>

#include "standalone/host/frame.h"
#include "tests/render/expected_picture.h"
#include "tests/render/render_case.h"
#include "tests/support/effect_test.h"

namespace quiltor::render_tests {

// The module's parameters, by index.
enum Param : int {
  kSource = 1,
  kPatternLayer = 2,
  kLock = 4,
  kTileMode = 5,
  kBlendMode = 6,
  kOpacity = 7,
  kScale = 8,
  kOffset = 9,
  kRotation = 10,
  kInvert = 11,
  kTintColor = 12,
  kTintOpacity = 13,
  kBlur = 14,
  kMask = 15,
};

// Names and versions of the suites without which no mask limits a frame. The video editor offers none of them.
[[nodiscard]] const std::set<std::pair<std::string, int>>& suitesOfMasks();

// A test that renders. The module is set up.
class RenderTest : public testing_support::EffectTest {
 protected:
  void SetUp() override { ASSERT_TRUE(effect.setUp().succeeded()); }

  // Writes the case's pattern file, if it has one, and gives the path; a JPEG's pixels become those that it keeps.
  std::string writePattern(RenderCase& frame);
  // Puts a pattern file into the instance the way a reopened project does.
  static void pick(standalone::Instance& instance, const std::string& path);
  // Resolution and layer transform, for all instances until set anew.
  void setSurroundings(const RenderCase& frame);
  static void setParameters(standalone::Instance& instance, const RenderCase& frame);
  static standalone::RenderResult renderOf(standalone::Instance& instance, const RenderCase& frame);

  // All of it with an instance of its own.
  standalone::RenderResult draw(RenderCase& frame);
  // That, when it has to work; an empty world when it did not, which is a failure.
  standalone::World drawn(RenderCase frame);
  // Draws and compares with the plain renderer.
  Comparison drawAndCompare(RenderCase& frame);
};

}  // namespace quiltor::render_tests
