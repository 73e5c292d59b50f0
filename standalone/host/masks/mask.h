#pragma once

#include <cstdint>
#include <vector>

namespace quiltor::standalone {

// A corner of a closed path. The tangents are offsets from the corner to the handles of the curves that arrive at it
// and leave it; both zero: a straight corner.
struct PathVertex {
  double x = 0, y = 0;
  double inX = 0, inY = 0;
  double outX = 0, outY = 0;
};

// Closed: the last vertex is joined to the first. What it winds around once or more often is inside.
using Outline = std::vector<PathVertex>;

// A mask of the layer, in full-resolution pixels of the layer. The identifier is also that of the path; 0 stands for no
// path, and a mask without vertices has none. The edge is softened over the feather's width, half of it inside and half
// outside.
struct Mask {
  int32_t id = 1;
  Outline vertices = {};
  double featherX = 0, featherY = 0;
  bool inverted = false;
};

}  // namespace quiltor::standalone
