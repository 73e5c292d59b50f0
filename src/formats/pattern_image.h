#pragma once

#include <cstdint>
#include <vector>

namespace quiltor {

// An 8-bit picture in memory: rows top to bottom, channels interleaved as R, G, B[, A], no padding between rows.
// Deliberate: a greyscale JPEG says channels 1 while its array holds three equal bytes per pixel; whoever steps through
// the array by channels sees the first third of it.
struct PatternImage {
  int32_t width = 0;
  int32_t height = 0;
  uint8_t channels = 0;
  std::vector<uint8_t> pixels;
};

}  // namespace quiltor
