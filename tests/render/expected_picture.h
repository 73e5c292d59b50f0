#pragma once

#include <cstdint>
#include <string>

#include "tests/reference/render.h"
#include "tests/render/render_case.h"

namespace quiltor::render_tests {

// A world's pixels as the effect reads them.
[[nodiscard]] reference::Picture pictureOf(const standalone::World& world);

// The case as the plain renderer takes it.
[[nodiscard]] reference::Frame referenceFrame(const RenderCase& frame);

struct Comparison {
  int64_t pixels = 0;
  double worst = 0;         // in the depth's own steps, or absolute in float
  std::string firstBeyond;  // the first pixel beyond the tolerance; empty when there is none
};

// 2e-6 in float, of the value where that is above 1; one step in 8 and 16 bits.
[[nodiscard]] Comparison compare(const standalone::World& drawn, const reference::Picture& expected);

}  // namespace quiltor::render_tests
