#pragma once

#include <cstdint>

#include "render/kernels/tile_mode.h"

namespace quiltor {

// Folds a coordinate into a tile of size pixels, bit for bit what these loops give, in constant time:
//   Tiled:    while (x < 0) x += size;  while (x >= size) x -= size;
//   Mirrored: x = fmod(abs(x), 2 * size); if (x >= size) x = 2 * size - x; then 0 and size - 1 bound the result.
// A coordinate that is not finite, or so large that the loop would never end, folds to 0. size is at least 1.
double foldTiled(double x, int32_t size);
double foldMirrored(double x, int32_t size);

}  // namespace quiltor
