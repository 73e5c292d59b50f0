#pragma once

#include <cmath>

#include "hostapi/basic_types.h"

namespace quiltor::standalone {

[[nodiscard]] inline double factorOf(const PF_RationalScale& scale) {
  return scale.num < 1 || scale.den < 1 ? 1.0 : static_cast<double>(scale.num) / scale.den;
}

// The full-resolution size of a buffer that was rendered at the scale.
[[nodiscard]] inline A_long fullSize(int size, const PF_RationalScale& scale) {
  return static_cast<A_long>(std::lround(size / factorOf(scale)));
}

}  // namespace quiltor::standalone
