#pragma once

#include <cstddef>
#include <cstdint>

#include "render/kernels/convert.h"

namespace quiltor {

// Limits a row of an output world to a mask: alpha is multiplied by the coverage, the colours are mixed with those of
// the same row of the input. coverage is the alpha of a row of 8-bit pixels, alpha first; what lies beyond its last
// pixel has that pixel's. Beyond the last pixel of the input everything is 0. Deliberate: whole numbers are cut, not
// rounded.
void limitRow(WorldFormat format, const void* input, size_t inputCount, const uint8_t* coverage, size_t coverageCount,
              size_t count, void* output);

}  // namespace quiltor
