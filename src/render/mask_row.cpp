#include "render/mask_row.h"

#include <algorithm>
#include <cstring>

#include "render/kernels/channel_scale.h"

namespace quiltor {
namespace {

// Rows need not be aligned.
template <class Channel>
void loadPixel(const void* row, size_t x, Channel (&pixel)[4]) {
  std::memcpy(pixel, static_cast<const uint8_t*>(row) + x * sizeof pixel, sizeof pixel);
}

template <class Channel, int kAlpha>
void limitRowAs(const void* input, size_t inputCount, const uint8_t* coverage, size_t coverageCount, size_t count,
                void* output) {
  for (size_t x = 0; x < count; ++x) {
    const float m = static_cast<float>(coverage[4 * std::min(x, coverageCount - 1)]) * kByteStep;
    Channel in[4] = {}, out[4];
    if (x < inputCount) loadPixel(input, x, in);
    loadPixel(output, x, out);
    for (int c = 0; c < 4; ++c) {
      const float inside = static_cast<float>(out[c]) * m;
      const float outside = static_cast<float>(in[c]) * (1.0f - m);
      out[c] = static_cast<Channel>(c == kAlpha ? inside : outside + inside);
    }
    std::memcpy(static_cast<uint8_t*>(output) + x * sizeof out, out, sizeof out);
  }
}

}  // namespace

void limitRow(WorldFormat format, const void* input, size_t inputCount, const uint8_t* coverage, size_t coverageCount,
              size_t count, void* output) {
  switch (format) {
    case WorldFormat::Argb8:
      return limitRowAs<uint8_t, 0>(input, inputCount, coverage, coverageCount, count, output);
    case WorldFormat::Argb16:
      return limitRowAs<uint16_t, 0>(input, inputCount, coverage, coverageCount, count, output);
    case WorldFormat::ArgbFloat:
      return limitRowAs<float, 0>(input, inputCount, coverage, coverageCount, count, output);
    case WorldFormat::Bgra8:
      return limitRowAs<uint8_t, 3>(input, inputCount, coverage, coverageCount, count, output);
    case WorldFormat::BgraFloat:
      return limitRowAs<float, 3>(input, inputCount, coverage, coverageCount, count, output);
  }
}

}  // namespace quiltor
