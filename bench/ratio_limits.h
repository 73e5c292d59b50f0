#pragma once

#include "bench/frame_runner.h"
#include "bench/frame_size.h"
#include "bench/limits.h"

namespace quiltor::bench {

// How a frame's time depends on the tile mode, the scale, the pattern's size and the blur's radius, all of J2.
void limitRatios(FrameRunner& runner, const std::string& format, const FrameSize& size, int frames, Limits& limits);

// The time of a small frame, which is most of all that of starting the workers.
void limitSmallFrame(FrameRunner& runner, int frames, Limits& limits);

// Every mode's time as a share of Multiply's; the slowest one is held to its limit. Returns a row for each mode.
nlohmann::json limitModes(FrameRunner& runner, const std::string& format, const FrameSize& size, int frames,
                          Limits& limits);

}  // namespace quiltor::bench
