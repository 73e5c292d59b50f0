#pragma once

#include <cstddef>
#include <cstdint>

namespace quiltor {

// Pixels that follow one another in a row, channel by channel, 32-bit float. The kernels hand rows on in such pieces,
// which stay in the core's nearest cache. They compute whole vectors: what lies behind a shorter run's end is not
// defined.
struct PixelRun {
  static constexpr size_t kLength = 128;  // a multiple of every vector's

  alignas(64) float r[kLength];
  alignas(64) float g[kLength];
  alignas(64) float b[kLength];
  alignas(64) float a[kLength];
};

// How many of them make a row.
constexpr size_t runsIn(int32_t width) {
  return (static_cast<size_t>(width) + PixelRun::kLength - 1) / PixelRun::kLength;
}

// Whether every pixel's alpha is 1.
bool isOpaque(const PixelRun& run, size_t count);

// To and from four floats a pixel, R, G, B, A.
void packRun(const PixelRun& run, size_t count, float* pixels);
void unpackRun(const float* pixels, size_t count, PixelRun& run);

}  // namespace quiltor
