#pragma once

#include <cstddef>
#include <cstdint>

#include "render/kernels/pixel_run.h"

namespace quiltor {

// How a private pixel copy stores a channel; four channels in the order R, G, B, A either way.
enum class ChannelType { Byte, Float };

struct CompositeSettings {
  int32_t mode = 0;    // from 0 in menu order; a mode beyond the last mixes to 0
  double opacity = 1;  // 0 .. 1, of the colour alone
  // Whether the result is written past the caches. finishStreaming() has to follow on the same thread.
  bool streams = false;
  // From these pixels of the input to those that are composited next, in bytes; 0 when nobody knows. They are fetched
  // in the meantime.
  size_t ahead = 0;
};

// Composites count pixels of the sampled pattern over those of the input layer and writes the result: straight alpha,
// 32-bit float, R, G, B, A. Deliberate: the alpha is the mode's times the input's whatever the opacity. count is at
// most a run's length.
void compositeRun(const PixelRun& pattern, const void* input, ChannelType inputType, const CompositeSettings& how,
                  size_t count, float* result);

}  // namespace quiltor
