#pragma once

#include <array>
#include <cstdint>

namespace quiltor {

// The sides of previews and thumbnails, in pixels.
inline constexpr int kThumbnailSize = 50;

// The rows or columns that a picture of 50 by 50 takes from one of that size: every fiftieth part of the way.
inline std::array<int64_t, kThumbnailSize> fiftySteps(int32_t size) {
  std::array<int64_t, kThumbnailSize> steps;
  float position = 0;
  for (int64_t& step : steps) {
    step = static_cast<int64_t>(position);
    position = static_cast<float>(position + size * 0.02);
  }
  return steps;
}

}  // namespace quiltor
