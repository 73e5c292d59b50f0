#include "render/kernels/blur_plain.h"

#include <algorithm>
#include <cmath>

#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "render/kernels/blur_plain.cpp"
#include <hwy/foreach_target.h>
//
#include <hwy/highway.h>
#include "render/kernels/vector_lanes-inl.h"

HWY_BEFORE_NAMESPACE();
namespace quiltor {
namespace HWY_NAMESPACE {

using L = Lanes;

HWY_INLINE L::D loadWide(const double* values) {
  return {hn::LoadU(L::dd, values), hn::LoadU(L::dd, values + HWY_LANES(double))};
}

// The weighted sum of N neighbouring lines at once: taps first .. end - 1, step floats from one to the next.
HWY_INLINE L::F weightedSum(const float* centre, ptrdiff_t step, const double* weights, int32_t first, int32_t end) {
  L::F sum = L::f(0);
  for (int32_t k = first; k < end; ++k) {
    const L::D value = L::widen(hn::LoadU(L::df, centre + k * step));
    sum = L::narrow(L::widen(sum) + L::d(weights[k]) * value);
  }
  return sum;
}

void blurAcrossPlainlyKernel(const BlurFrame& frame, const PlainTentFilter& filter, int32_t first, int32_t end,
                             PlainBlurScratch& scratch) {
  const int32_t reach = filter.reach();
  const double* weights = filter.weights() + reach;
  const size_t width = static_cast<size_t>(frame.width), margin = static_cast<size_t>(reach);
  // Zeros stand for the taps outside the row: they add nothing, and the scales leave their weights out.
  std::vector<float> line(width + 2 * margin + L::kCount);
  for (int32_t y = first; y < end; ++y) {
    for (int32_t channel = 0; channel < 3; ++channel) {
      const float* source = frame.row(y) + channel;
      for (size_t x = 0; x < width; ++x) line[margin + x] = source[4 * x];
      float* out = scratch.plane(channel, y);
      for (size_t x = 0; x < width; x += L::kCount) {
        const L::F sum = weightedSum(line.data() + margin + x, 1, weights, -reach, reach + 1);
        hn::StoreU(L::narrow(L::widen(sum) * loadWide(filter.scales() + x)), L::df, out + x);
      }
    }
  }
}

void blurDownPlainlyKernel(PlainBlurScratch& scratch, const PlainTentFilter& filter, int32_t first, int32_t end,
                           const BlurFrame& frame) {
  constexpr size_t kN = L::kCount;
  const int32_t reach = filter.reach();
  const double* weights = filter.weights() + reach;
  const size_t width = static_cast<size_t>(frame.width);
  const ptrdiff_t step = static_cast<ptrdiff_t>(scratch.pitch());
  for (int32_t y = first; y < end; ++y) {
    const int32_t above = -std::min(reach, y), below = std::min(reach, frame.height - 1 - y) + 1;
    const L::D scale = L::d(filter.scales()[y]);
    float* row = frame.row(y);
    for (size_t x = 0; x < width; x += kN) {
      const size_t count = std::min(kN, width - x);
      float block[4 * kN] = {};
      std::copy_n(row + 4 * x, 4 * count, block);
      PixelLanes pixels = loadFloats(block);
      L::F* channels[] = {&pixels.r, &pixels.g, &pixels.b};
      for (int32_t channel = 0; channel < 3; ++channel) {
        const L::F sum = weightedSum(scratch.plane(channel, y) + x, step, weights, above, below);
        *channels[channel] = L::narrow(L::widen(sum) * scale);
      }
      storeFloats(pixels, block);
      std::copy_n(block, 4 * count, row + 4 * x);
    }
  }
}

}  // namespace HWY_NAMESPACE
}  // namespace quiltor
HWY_AFTER_NAMESPACE();

#if HWY_ONCE
namespace quiltor {
HWY_EXPORT(blurAcrossPlainlyKernel);
HWY_EXPORT(blurDownPlainlyKernel);

namespace {
// No vector holds more values than this.
constexpr size_t kWidestVector = 16;
}  // namespace

PlainTentFilter::PlainTentFilter(int32_t radius, int32_t length) : reach_(std::max(0, std::min(radius, length) - 1)) {
  for (int32_t k = -reach_; k <= reach_; ++k) {
    const float distance = std::fabs(static_cast<float>(k) / static_cast<float>(radius));
    weights_.push_back(1.0 - std::min(1.0, static_cast<double>(distance)));
  }
  for (int32_t position = 0; position < length; ++position) {
    double sum = 0;
    for (int32_t k = -std::min(reach_, position); k <= std::min(reach_, length - 1 - position); ++k) {
      sum += weights_[static_cast<size_t>(reach_ + k)];
    }
    scales_.push_back(1.0 / sum);
  }
  scales_.resize(scales_.size() + kWidestVector);
}

PlainBlurScratch::PlainBlurScratch(int32_t width, int32_t height)
    : planeWidth_((static_cast<size_t>(width) + kWidestVector - 1) / kWidestVector * kWidestVector),
      colours_(planeWidth_ * 3 * static_cast<size_t>(height)) {}

void blurAcrossPlainly(const BlurFrame& frame, const PlainTentFilter& filter, int32_t first, int32_t end,
                       PlainBlurScratch& scratch) {
  HWY_DYNAMIC_DISPATCH(blurAcrossPlainlyKernel)(frame, filter, first, end, scratch);
}

void blurDownPlainly(PlainBlurScratch& scratch, const PlainTentFilter& filter, int32_t first, int32_t end,
                     const BlurFrame& frame) {
  HWY_DYNAMIC_DISPATCH(blurDownPlainlyKernel)(scratch, filter, first, end, frame);
}
}  // namespace quiltor
#endif
