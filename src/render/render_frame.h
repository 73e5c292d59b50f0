#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>

#include "render/kernels/sample.h"
#include "render/render_block.h"
#include "render/render_transform.h"

namespace quiltor {

// What the passes of one frame share besides the block and the transform.
struct FrameState {
  // The rows and columns that input and result have in common; beyond them the result is transparent.
  int32_t width = 0;
  int32_t height = 0;
  PatternPixels pattern;
  // Memory from the host, which has it back when the frame is drawn. Throws what the host answers when it has none.
  std::function<void*(size_t bytes)> hostMemory;
};

// Draws the frame into the block's result: sampling, blur across, blur down, compositing. Each pass runs on all workers
// and is joined before the next; neighbouring passes of which each pixel needs its own row only are one, with the same
// bits. Replaceable; the driver skips the call when there is none.
using RenderFrame = void (*)(RenderBlock&, FrameState&, RenderTransform&);
extern RenderFrame renderFrame;

}  // namespace quiltor
