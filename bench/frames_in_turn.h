#pragma once

#include <string>
#include <vector>

#include "bench/frame_runner.h"

namespace quiltor::bench {

inline constexpr int kThreads = 2;  // of the host's iterations

struct FrameVariant {
  FrameJob job;
  const standalone::World* input = nullptr;
  // One of both: a layer, or an instance that was saved with a pattern.
  const standalone::World* pattern = nullptr;
  const std::vector<unsigned char>* saved = nullptr;
};

// The medians of so many frames of each variant. They are drawn in turns, so that the machine's changes meet all alike,
// each after one of its own that is not measured.
std::vector<FrameRunner::Milliseconds> drawInTurn(FrameRunner& runner, const std::vector<FrameVariant>& variants,
                                                  int frames);

}  // namespace quiltor::bench
