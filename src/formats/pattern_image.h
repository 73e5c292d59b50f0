#pragma once

#include <cstdint>
#include <vector>

#include "base/checked_size.h"

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

// Whether the array holds as many bytes as the picture's size says. A load that failed half-way leaves one that does
// not, which counts as no picture.
inline bool isWhole(const PatternImage& image) {
  const auto size = checkedProduct({image.width, image.height, image.channels});
  return size && *size > 0 && *size <= static_cast<int64_t>(image.pixels.size());
}

}  // namespace quiltor
