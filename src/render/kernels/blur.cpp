#include "render/kernels/blur.h"

#include <algorithm>
#include <cstring>

#include <hwy/cache_control.h>

#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "render/kernels/blur.cpp"
#include <hwy/foreach_target.h>
//
#include <hwy/highway.h>
#include "render/kernels/streaming.h"
#include "render/kernels/vector_lanes-inl.h"

HWY_BEFORE_NAMESPACE();
namespace quiltor {
namespace HWY_NAMESPACE {

using L = Lanes;

HWY_INLINE L::D widen(L::I steps) {
  const hn::Half<decltype(L::di)> half;
  return {hn::PromoteTo(L::dd, hn::LowerHalf(half, steps)), hn::PromoteTo(L::dd, hn::UpperHalf(half, steps))};
}

HWY_INLINE L::D loadWide(const double* values) {
  return {hn::Load(L::dd, values), hn::Load(L::dd, values + HWY_LANES(double))};
}

HWY_INLINE void storeWide(L::D value, double* to) {
  hn::Store(value.low, L::dd, to);
  hn::Store(value.high, L::dd, to + HWY_LANES(double));
}

bool takeRunKernel(const PixelRun& run, size_t count, int32_t* steps) {
  const L::F perStep = L::f(kColourSteps), limit = L::f(kLargestExactColour);
  bool fits = true;
  for (size_t i = 0; i < count; i += L::kCount) {
    const PixelLanes pixels = loadRun(run, i);
    const auto within =
        hn::And(hn::And(hn::Abs(pixels.r) < limit, hn::Abs(pixels.g) < limit), hn::Abs(pixels.b) < limit);
    const L::I r = hn::NearestInt(pixels.r * perStep), g = hn::NearestInt(pixels.g * perStep),
               b = hn::NearestInt(pixels.b * perStep);
    const size_t left = count - i;
    if (HWY_LIKELY(left >= L::kCount)) {
      fits = fits && hn::AllTrue(L::df, within);
      hn::StoreInterleaved4(r, g, b, hn::Zero(L::di), L::di, steps + 4 * i);
    } else {
      HWY_ALIGN int32_t last[4 * L::kCount];
      fits = fits && hn::AllTrue(L::df, hn::Or(within, hn::Not(hn::FirstN(L::df, left))));
      hn::StoreInterleaved4(r, g, b, hn::Zero(L::di), L::di, last);
      std::copy_n(last, 4 * left, steps + 4 * i);
    }
  }
  return fits;
}

// Four channels of a pixel lie side by side: as many of them at once as a vector holds.
struct Channels {
  static constexpr hn::CappedTag<double, 4> dd{};
  static constexpr hn::Rebind<int32_t, hn::CappedTag<double, 4>> di{};
  static constexpr hn::Rebind<float, hn::CappedTag<double, 4>> df{};
  static constexpr size_t kCount = hn::MaxLanes(dd);
};

// The sums run along the row: `tent` is the weighted sum around a pixel, `change` what it grows by to the next one.
struct LineSums {
  hn::Vec<decltype(Channels::dd)> tent, change;
};

HWY_INLINE hn::Vec<decltype(Channels::dd)> pixelAt(const int32_t* pixel) {
  return hn::PromoteTo(Channels::dd, hn::LoadU(Channels::di, pixel));
}

// line points at the row's first pixel.
HWY_INLINE LineSums startOfLine(const int32_t* line, int32_t radius) {
  LineSums sums{hn::Zero(Channels::dd), hn::Zero(Channels::dd)};
  auto passed = hn::Zero(Channels::dd);
  for (int32_t k = 0; k < radius; ++k) {
    passed = passed + pixelAt(line + ptrdiff_t{4} * k);
    sums.tent = sums.tent + passed;
  }
  // So far the first pixel has the weight `radius` and each further one less.
  const auto first = pixelAt(line);
  sums.change = passed - first + pixelAt(line + ptrdiff_t{4} * radius) - first;
  return sums;
}

// Blurs count pixels of a line on, each as four floats in steps.
HWY_INLINE void blurPixels(const int32_t* line, int32_t radius, const double* scales, size_t count, LineSums& sums,
                           float* out) {
  const ptrdiff_t reach = ptrdiff_t{4} * radius;
  LineSums now = sums;
  for (size_t x = 0; x < count; ++x, line += 4, out += 4) {
    const auto scaled = now.tent * hn::Set(Channels::dd, scales[x]);
    hn::StoreU(hn::DemoteTo(Channels::df, scaled), Channels::df, out);
    const auto next = hn::LoadU(Channels::di, line + 4);
    const auto entering = hn::LoadU(Channels::di, line + 4 + reach);
    const auto leaving = hn::LoadU(Channels::di, line + 4 - reach);
    now.tent = now.tent + now.change;
    now.change = now.change + hn::PromoteTo(Channels::dd, (entering - next) + (leaving - next));
  }
  sums = now;
}

void blurAcrossKernel(const int32_t* line, const TentScale& scale, int32_t y, BlurScratch& scratch) {
  constexpr size_t kParts = 4 / Channels::kCount;
  const size_t width = static_cast<size_t>(scratch.width());
  LineSums sums[kParts];
  for (size_t part = 0; part < kParts; ++part) sums[part] = startOfLine(line + part * Channels::kCount, scale.radius());
  HWY_ALIGN float pixels[4 * PixelRun::kLength] = {};
  for (size_t x = 0; x < width; x += PixelRun::kLength) {
    const size_t count = std::min(PixelRun::kLength, width - x);
    for (size_t part = 0; part < kParts; ++part) {
      blurPixels(line + 4 * x + part * Channels::kCount, scale.radius(), scale.data() + x, count, sums[part],
                 pixels + part * Channels::kCount);
    }
    for (size_t i = 0; i < count; i += L::kCount) {
      const PixelLanes colours = loadFloats(pixels + 4 * i);
      hn::StoreU(hn::NearestInt(colours.r), L::di, scratch.plane(0, y) + x + i);
      hn::StoreU(hn::NearestInt(colours.g), L::di, scratch.plane(1, y) + x + i);
      hn::StoreU(hn::NearestInt(colours.b), L::di, scratch.plane(2, y) + x + i);
    }
  }
}

// Adds the rows that lie 1 .. radius - 1 steps away in one direction: `tent` gains them with weights that fall from
// radius - 1, `passed` without any.
HWY_INLINE void addSide(const ColumnsPlace& columns, int32_t channel, int32_t direction, size_t i, L::D& tent,
                        L::D& passed) {
  int32_t k = 1;
  for (; k < columns.radius; ++k) {
    const int32_t* row = columns.row(channel, columns.y + direction * k);
    if (!row) break;
    passed = passed + widen(hn::LoadU(L::di, row + i));
    tent = tent + passed;
  }
  tent = tent + passed * L::d(columns.radius - k);
}

void startColumnsKernel(const ColumnsPlace& columns, BlurColumns::Sums& sums) {
  for (int32_t channel = 0; channel < 3; ++channel) {
    for (size_t i = 0; i < columns.count; i += L::kCount) {
      const L::D centre = widen(hn::LoadU(L::di, columns.row(channel, columns.y) + i));
      L::D tent = centre * L::d(columns.radius), above = L::d(0), below = L::d(0);
      addSide(columns, channel, -1, i, tent, above);
      addSide(columns, channel, 1, i, tent, below);
      const int32_t* entering = columns.row(channel, columns.y + columns.radius);
      if (entering) below = below + widen(hn::LoadU(L::di, entering + i));
      const size_t at = static_cast<size_t>(channel) * PixelRun::kLength + i;
      storeWide(tent, sums.tent + at);
      storeWide(below - above - centre, sums.change + at);
    }
  }
}

HWY_INLINE L::I loadSteps(const int32_t* row, size_t i) { return row ? hn::LoadU(L::di, row + i) : hn::Zero(L::di); }

void nextRowKernel(const ColumnsPlace& columns, double scale, BlurColumns::Sums& sums, PixelRun& out) {
  const L::D factor = L::d(scale / static_cast<double>(kColourSteps));
  float* const channels[] = {out.r, out.g, out.b};
  for (int32_t channel = 0; channel < 3; ++channel) {
    const int32_t* next = columns.row(channel, columns.y + 1);
    const int32_t* entering = columns.row(channel, columns.y + 1 + columns.radius);
    const int32_t* leaving = columns.row(channel, columns.y + 1 - columns.radius);
    const int32_t* soon = columns.row(channel, columns.y + 3 + columns.radius);
    for (size_t i = 0; i < columns.count; i += L::kCount) {
      const size_t at = static_cast<size_t>(channel) * PixelRun::kLength + i;
      if (soon) hwy::Prefetch(soon + i);
      const L::D tent = loadWide(sums.tent + at), change = loadWide(sums.change + at);
      hn::Store(L::narrow(tent * factor), L::df, channels[channel] + i);
      const L::I centre = loadSteps(next, i);
      const L::I second = (loadSteps(entering, i) - centre) + (loadSteps(leaving, i) - centre);
      storeWide(tent + change, sums.tent + at);
      storeWide(change + widen(second), sums.change + at);
    }
  }
}

}  // namespace HWY_NAMESPACE
}  // namespace quiltor
HWY_AFTER_NAMESPACE();

#if HWY_ONCE
namespace quiltor {
HWY_EXPORT(takeRunKernel);
HWY_EXPORT(blurAcrossKernel);
HWY_EXPORT(startColumnsKernel);
HWY_EXPORT(nextRowKernel);

TentScale::TentScale(int32_t radius, int32_t length) : radius_(radius), scales_(static_cast<size_t>(length)) {
  const int64_t r = radius;
  // The weights of the taps 1 .. n to one side.
  const auto side = [r](int64_t n) { return n * r - n * (n + 1) / 2; };
  for (int32_t position = 0; position < length; ++position) {
    const int64_t before = std::min<int64_t>(position, r - 1), after = std::min<int64_t>(length - 1 - position, r - 1);
    scales_[static_cast<size_t>(position)] = 1.0 / static_cast<double>(r + side(before) + side(after));
  }
}

namespace {

// Whole runs, and an odd number of cache lines: rows that are a power of two apart would share the cache's few places.
size_t planeWidth(int32_t width) {
  constexpr size_t kLine = kCacheLineBytes / sizeof(int32_t);
  const size_t whole = runsIn(width) * PixelRun::kLength;
  return whole + (whole / kLine % 2 == 0 ? kLine : 0);
}

}  // namespace

size_t BlurScratch::bytes(int32_t width, int32_t height) {
  const size_t steps = planeWidth(width) * 3 * static_cast<size_t>(height);
  return steps * sizeof(int32_t) + kCacheLineBytes;
}

BlurScratch::BlurScratch(int32_t width, int32_t height, void* memory)
    : width_(width), height_(height), planeWidth_(planeWidth(width)) {
  const auto address = reinterpret_cast<uintptr_t>(memory);
  steps_ =
      static_cast<int32_t*>(memory) + (kCacheLineBytes - address % kCacheLineBytes) % kCacheLineBytes / sizeof(int32_t);
}

BlurLine::BlurLine(int32_t width, int32_t radius)
    : width_(width), radius_(radius), steps_(4 * (static_cast<size_t>(width) + 2 * static_cast<size_t>(radius) + 2)) {}

bool BlurLine::take(const PixelRun& run, int32_t x, size_t count) {
  return HWY_DYNAMIC_DISPATCH(takeRunKernel)(run, count, steps_.data() + ptrdiff_t{4} * (radius_ + x));
}

void BlurLine::blurAcross(const TentScale& scale, int32_t y, BlurScratch& scratch) const {
  HWY_DYNAMIC_DISPATCH(blurAcrossKernel)(steps_.data() + ptrdiff_t{4} * radius_, scale, y, scratch);
}

BlurColumns::BlurColumns(const BlurScratch& scratch, const TentScale& scale, int32_t x, size_t count, int32_t y)
    : place_{scratch, scale.radius(), x, y, count}, scale_(scale) {
  HWY_DYNAMIC_DISPATCH(startColumnsKernel)(place_, sums_);
}

void BlurColumns::next(PixelRun& out) {
  HWY_DYNAMIC_DISPATCH(nextRowKernel)(place_, scale_.at(place_.y), sums_, out);
  ++place_.y;
}
}  // namespace quiltor
#endif
