#pragma once

#include <cstddef>
#include <span>

namespace quiltor::standalone {

// How far beyond a pixel feathering looks.
[[nodiscard]] int featherReach(double feather);

// Softens a line of coverage in place: a hard edge becomes a smooth ramp as wide as the feather, centred where the edge
// was. What lies beyond the line's ends counts as uncovered.
void featherLine(std::span<float> line, double feather);

}  // namespace quiltor::standalone
