#pragma once

#include "bench/frame_runner.h"
#include "bench/frame_size.h"
#include "bench/limits.h"

namespace quiltor::bench {

// Whether the system tells a process's peak, and begins a new one when it is told to.
bool canMeasurePeakMemory();

// The most memory that the effect holds while it draws a frame, without the host's worlds, beside what it is meant to
// hold: the private copies, the result, 1 MiB a worker and, of J4b, the blurred colours between the blur's halves.
// Only where it can be measured. No other FrameRunner may live.
void limitPeakMemory(const char* modulePath, const std::string& format, const FrameSize& size, Limits& limits);

}  // namespace quiltor::bench
