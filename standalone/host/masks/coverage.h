#pragma once

#include <vector>

#include "standalone/host/masks/mask.h"

namespace quiltor::standalone {

// The pixels to answer for and how the path is drawn there, all in the path's own unit.
struct CoverageRequest {
  int left = 0, top = 0;
  int width = 0, height = 0;
  double featherX = 0, featherY = 0;
  bool antiAliased = true;
};

// How much of each pixel lies inside the path, 0 to 1, row by row. The edge of the request is no edge of the path:
// feathering looks beyond it. Throws std::bad_alloc when the request needs more memory than there is.
[[nodiscard]] std::vector<float> coverageOf(const Outline& outline, const CoverageRequest& request);

// The same path at another resolution.
[[nodiscard]] Outline scaled(Outline outline, double factorX, double factorY);

}  // namespace quiltor::standalone
