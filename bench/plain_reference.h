#pragma once

#include "bench/frame_runner.h"

namespace quiltor::bench {

// Milliseconds that the plain reference takes for a frame of so many pixels, from one that is much smaller: its time
// per pixel does not depend on the frame's size.
double plainReference(const FrameJob& job, double pixels);

}  // namespace quiltor::bench
