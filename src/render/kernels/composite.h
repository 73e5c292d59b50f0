#pragma once

#include <cstddef>
#include <cstdint>

namespace quiltor {

// How a private pixel copy stores a channel; four channels in the order R, G, B, A either way.
enum class ChannelType { Byte, Float };

// Composites a row of the sampled pattern over the same row of the input layer and writes the result over the pattern:
// straight alpha, 32-bit float, R, G, B, A. mode counts from 0 in menu order; a mode beyond the last mixes to 0.
// opacity runs from 0 to 1 and mixes the colour alone. Deliberate: the alpha is the mode's times the input's whatever
// the opacity.
void compositeRow(const void* input, ChannelType inputType, int32_t mode, double opacity, size_t count, float* pattern);

}  // namespace quiltor
