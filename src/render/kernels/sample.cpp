#include "render/kernels/sample.h"

#include <algorithm>
#include <cstring>

#include "base/checked_size.h"
#include "render/kernels/tile_fold.h"

#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "render/kernels/sample.cpp"
#include <hwy/foreach_target.h>
//
#include <hwy/highway.h>
#include "render/kernels/vector_lanes-inl.h"

HWY_BEFORE_NAMESPACE();
namespace quiltor {
namespace HWY_NAMESPACE {

using L = Lanes;
constexpr size_t kN = Lanes::kCount;

struct Place {
  L::D x, y;
};

// Below this magnitude the quotient of a fold is off by at most one, which the corrections mend exactly.
constexpr double kFoldInVectors = 0x1p52;

// fmod(x, period) for x in 0 .. kFoldInVectors, exact: product and differences stay on the grid of x.
HWY_INLINE L::D remainder(L::D x, L::D period, L::D inverse) {
  const L::D rest = x - hn::Floor(x * inverse) * period;
  const L::D raised = L::select(rest < L::d(0), rest + period, rest);
  return L::select(raised >= period, raised - period, raised);
}

HWY_INLINE L::D foldTiledLanes(L::D x, L::D size, L::D inverse) {
  const L::D distance = hn::Abs(x);
  const L::D rest = remainder(distance, size, inverse);
  const L::D mirrored = L::select(rest == L::d(0), rest, size - rest);
  const L::D fromBelow = L::select(mirrored >= size, mirrored - size, mirrored);
  const L::D fromAbove = L::select(distance < size, x, rest);
  return L::select(x < L::d(0), fromBelow, fromAbove);
}

HWY_INLINE L::D foldMirroredLanes(L::D x, L::D size, L::D inverse) {
  const L::D period = size + size;
  const L::D rest = remainder(hn::Abs(x), period, inverse);
  const L::D folded = L::select(rest >= size, period - rest, rest);
  return L::select(folded >= size, size - L::d(1), folded);
}

template <TileMode kMode>
HWY_INLINE L::D fold(L::D x, int32_t size) {
  constexpr bool kMirrored = kMode == TileMode::Mirrored;
  if (HWY_LIKELY(hn::AllTrue(L::dd, hn::Abs(x) < L::d(kFoldInVectors)))) {
    const L::D width = L::d(size);
    return kMirrored ? foldMirroredLanes(x, width, L::d(0.5 / size)) : foldTiledLanes(x, width, L::d(1.0 / size));
  }
  HWY_ALIGN double lanes[kN];
  hn::Store(x, L::dd, lanes);
  for (double& lane : lanes) lane = kMirrored ? foldMirrored(lane, size) : foldTiled(lane, size);
  return hn::Load(L::dd, lanes);
}

// The four texels around N places, as colours of the upper and lower row, left and right.
struct TexelLanes {
  PixelLanes upperLeft, upperRight, lowerLeft, lowerRight;
};

struct TexelIndices {
  HWY_ALIGN int32_t left[kN], right[kN], upper[kN], lower[kN];
};

// Reads texels of one, three or four bytes; alpha is 1 unless there are four.
struct ByteTexels {
  explicit ByteTexels(const PatternPixels& pattern)
      : bytes(static_cast<const uint8_t*>(pattern.data)),
        lastWord(pattern.size - 4),
        stride(static_cast<size_t>(pattern.bytesPerPixel)),
        rowBytes(static_cast<size_t>(pattern.width) * stride) {}

  HWY_INLINE int32_t texel(int32_t x, int32_t y) const {
    const size_t offset = static_cast<size_t>(y) * rowBytes + static_cast<size_t>(x) * stride;
    const size_t word = std::min(offset, lastWord);
    uint32_t value;
    std::memcpy(&value, bytes + word, sizeof value);
    return static_cast<int32_t>(value >> (8 * (offset - word)));
  }

  HWY_INLINE TexelLanes read(const TexelIndices& at) const {
    HWY_ALIGN int32_t words[4][kN];
    for (size_t i = 0; i < kN; ++i) {
      words[0][i] = texel(at.left[i], at.upper[i]);
      words[1][i] = texel(at.right[i], at.upper[i]);
      words[2][i] = texel(at.left[i], at.lower[i]);
      words[3][i] = texel(at.right[i], at.lower[i]);
    }
    TexelLanes out{fromBytes(hn::Load(L::di, words[0])), fromBytes(hn::Load(L::di, words[1])),
                   fromBytes(hn::Load(L::di, words[2])), fromBytes(hn::Load(L::di, words[3]))};
    if (stride != 4) out.upperLeft.a = L::f(1);
    return out;
  }

  const uint8_t* bytes;
  size_t lastWord, stride, rowBytes;
};

struct FloatTexels {
  explicit FloatTexels(const PatternPixels& pattern)
      : floats(static_cast<const float*>(pattern.data)), width(static_cast<size_t>(pattern.width)) {}

  HWY_INLINE PixelLanes gather(const int32_t* x, const int32_t* y) const {
    HWY_ALIGN float texels[4 * kN];
    for (size_t i = 0; i < kN; ++i) {
      const float* texel = floats + 4 * (static_cast<size_t>(y[i]) * width + static_cast<size_t>(x[i]));
      std::memcpy(texels + 4 * i, texel, 4 * sizeof(float));
    }
    return loadFloats(texels);
  }

  HWY_INLINE TexelLanes read(const TexelIndices& at) const {
    return {gather(at.left, at.upper), gather(at.right, at.upper), gather(at.left, at.lower),
            gather(at.right, at.lower)};
  }

  const float* floats;
  size_t width;
};

HWY_INLINE L::F bilinear(L::F upperLeft, L::F upperRight, L::F lowerLeft, L::F lowerRight, L::F fx, L::F fy) {
  const L::F top = upperLeft + (upperRight - upperLeft) * fx;
  const L::F bottom = lowerLeft + (lowerRight - lowerLeft) * fx;
  return top + (bottom - top) * fy;
}

// Bilinear colour and plain alpha at places that lie inside the pattern.
template <class Texels>
HWY_INLINE PixelLanes readPattern(const Texels& texels, const PatternPixels& pattern, const Place& place) {
  const L::D left = hn::Floor(place.x), upper = hn::Floor(place.y);
  const L::F fx = L::narrow(place.x - left), fy = L::narrow(place.y - upper);
  const L::I x0 = hn::DemoteTo(L::di, left), y0 = hn::DemoteTo(L::di, upper);
  const L::I one = hn::Set(L::di, 1);
  TexelIndices at;
  hn::Store(x0, L::di, at.left);
  hn::Store(y0, L::di, at.upper);
  hn::Store(hn::Min(x0 + one, hn::Set(L::di, pattern.width - 1)), L::di, at.right);
  hn::Store(hn::Min(y0 + one, hn::Set(L::di, pattern.height - 1)), L::di, at.lower);
  const TexelLanes t = texels.read(at);
  return {bilinear(t.upperLeft.r, t.upperRight.r, t.lowerLeft.r, t.lowerRight.r, fx, fy),
          bilinear(t.upperLeft.g, t.upperRight.g, t.lowerLeft.g, t.lowerRight.g, fx, fy),
          bilinear(t.upperLeft.b, t.upperRight.b, t.lowerLeft.b, t.lowerRight.b, fx, fy), t.upperLeft.a};
}

// The tint replaces a colour by its own scaled with the colour's brightness.
HWY_INLINE L::F tintChannel(L::F channel, L::D tint, L::D brightness, L::D rest) {
  return L::narrow(tint * brightness + rest * L::widen(channel));
}

HWY_INLINE PixelLanes adjust(const PixelLanes& in, const SampleTransform& t) {
  PixelLanes out = in;
  if (t.invertOn) {
    out.r = L::f(1) - out.r;
    out.g = L::f(1) - out.g;
    out.b = L::f(1) - out.b;
  }
  const L::D brightness = L::widen(luma(out.r, out.g, out.b)), rest = L::d(1.0 - t.tintAmount);
  out.r = tintChannel(out.r, L::d(t.tintAmount * static_cast<double>(t.tintR)), brightness, rest);
  out.g = tintChannel(out.g, L::d(t.tintAmount * static_cast<double>(t.tintG)), brightness, rest);
  out.b = tintChannel(out.b, L::d(t.tintAmount * static_cast<double>(t.tintB)), brightness, rest);
  return out;
}

// Where in the pattern, not yet folded, the frame's pixels at column x and row y lie.
HWY_INLINE Place locate(const PatternPixels& pattern, const SampleTransform& t, L::D x, double y) {
  L::D px = x + L::d(t.originX), py = L::d(y + t.originY);
  if (t.lockOn) {
    const L::D dx = px - L::d(t.lockX), dy = py - L::d(t.lockY);
    const L::D c = L::d(t.lockCos), s = L::d(t.lockSin);
    px = (c * dx - s * dy) * L::d(t.lockInvScaleX) + L::d(t.lockAnchorX);
    py = (s * dx + c * dy) * L::d(t.lockInvScaleY) + L::d(t.lockAnchorY);
  }
  const L::D u = px - L::d(t.offsetX), v = py - L::d(t.offsetY);
  const L::D c = L::d(t.cosine), s = L::d(t.sine), k = L::d(t.scaleFactor);
  const L::D placeX = (c * u - s * v) * k + L::d(pattern.width / 2);
  const L::D placeY = (s * u + c * v) * k + L::d(pattern.height / 2);
  return {placeX / L::d(t.downsampleX), placeY / L::d(t.downsampleY)};
}

template <TileMode kMode, class Texels>
HWY_INLINE PixelLanes samplePixels(const Texels& texels, const PatternPixels& pattern, const SampleTransform& t, L::D x,
                                   double y) {
  Place place = locate(pattern, t, x, y);
  if constexpr (kMode != TileMode::Single) {
    place.x = fold<kMode>(place.x, pattern.width);
    place.y = fold<kMode>(place.y, pattern.height);
    return adjust(readPattern(texels, pattern, place), t);
  } else {
    const auto insideX = hn::And(place.x >= L::d(0), place.x < L::d(pattern.width));
    const auto insideY = hn::And(place.y >= L::d(0), place.y < L::d(pattern.height));
    const auto inside = hn::And(insideX, insideY);
    place.x = hn::IfThenElseZero(inside, place.x);
    place.y = hn::IfThenElseZero(inside, place.y);
    const PixelLanes found = adjust(readPattern(texels, pattern, place), t);
    const auto narrowInside = hn::RebindMask(L::df, L::narrow(hn::IfThenElseZero(inside, L::d(1))) > L::f(0));
    return {hn::IfThenElseZero(narrowInside, found.r), hn::IfThenElseZero(narrowInside, found.g),
            hn::IfThenElseZero(narrowInside, found.b), L::select(narrowInside, found.a, L::f(1))};
  }
}

template <TileMode kMode, class Texels>
void sampleRowAs(const PatternPixels& pattern, const SampleTransform& t, int32_t y, size_t count, float* out) {
  const Texels texels(pattern);
  const L::D steps = hn::Iota(L::dd, 0.0);
  HWY_ALIGN float last[4 * kN];
  for (size_t x = 0; x < count; x += kN) {
    const bool whole = count - x >= kN;
    const PixelLanes pixels = samplePixels<kMode>(texels, pattern, t, steps + L::d(static_cast<double>(x)), y);
    storeFloats(pixels, whole ? out + 4 * x : last);
    if (!whole) std::copy_n(last, 4 * (count - x), out + 4 * x);
  }
}

template <class Texels>
void sampleRowFrom(const PatternPixels& pattern, const SampleTransform& t, int32_t y, size_t count, float* out) {
  switch (t.tileMode) {
    case TileMode::Single:
      return sampleRowAs<TileMode::Single, Texels>(pattern, t, y, count, out);
    case TileMode::Tiled:
      return sampleRowAs<TileMode::Tiled, Texels>(pattern, t, y, count, out);
    case TileMode::Mirrored:
      return sampleRowAs<TileMode::Mirrored, Texels>(pattern, t, y, count, out);
  }
}

void sampleRowKernel(const PatternPixels& pattern, const SampleTransform& transform, int32_t y, size_t count,
                     float* out) {
  if (pattern.type == ChannelType::Float) {
    sampleRowFrom<FloatTexels>(pattern, transform, y, count, out);
  } else {
    sampleRowFrom<ByteTexels>(pattern, transform, y, count, out);
  }
}

template <TileMode kMode>
void foldRowAs(int32_t size, size_t count, double* coordinates) {
  size_t i = 0;
  for (; i + kN <= count; i += kN) {
    hn::StoreU(fold<kMode>(hn::LoadU(L::dd, coordinates + i), size), L::dd, coordinates + i);
  }
  if (const size_t left = count - i; left > 0) {
    double last[kN] = {};
    std::copy_n(coordinates + i, left, last);
    hn::StoreU(fold<kMode>(hn::LoadU(L::dd, last), size), L::dd, last);
    std::copy_n(last, left, coordinates + i);
  }
}

void foldRowKernel(TileMode mode, int32_t size, size_t count, double* coordinates) {
  if (mode == TileMode::Mirrored) {
    foldRowAs<TileMode::Mirrored>(size, count, coordinates);
  } else {
    foldRowAs<TileMode::Tiled>(size, count, coordinates);
  }
}

}  // namespace HWY_NAMESPACE
}  // namespace quiltor
HWY_AFTER_NAMESPACE();

#if HWY_ONCE
namespace quiltor {
HWY_EXPORT(sampleRowKernel);
HWY_EXPORT(foldRowKernel);

bool PatternPixels::usable() const {
  if (!data || width < 1 || height < 1 || bytesPerPixel < 1) return false;
  const auto pixels = checkedProduct({width, height});
  if (type == ChannelType::Float) {
    const auto needed = checkedProduct({width, height, 4 * sizeof(float)});
    return needed && static_cast<uint64_t>(*needed) <= size;
  }
  const auto toLastPixel = checkedProduct({*pixels - 1, bytesPerPixel});
  return toLastPixel && static_cast<uint64_t>(*toLastPixel) + static_cast<uint64_t>(std::max(3, bytesPerPixel)) <= size;
}

void sampleRow(const PatternPixels& pattern, const SampleTransform& transform, int32_t y, size_t count, float* out) {
  // Texels are read as words of four bytes, which a picture of one opaque pixel does not have.
  if (pattern.type == ChannelType::Byte && pattern.size < sizeof(uint32_t)) {
    uint8_t padded[sizeof(uint32_t)] = {};
    std::memcpy(padded, pattern.data, pattern.size);
    PatternPixels wide = pattern;
    wide.data = padded;
    wide.size = sizeof padded;
    return HWY_DYNAMIC_DISPATCH(sampleRowKernel)(wide, transform, y, count, out);
  }
  HWY_DYNAMIC_DISPATCH(sampleRowKernel)(pattern, transform, y, count, out);
}

void foldRow(TileMode mode, int32_t size, size_t count, double* coordinates) {
  HWY_DYNAMIC_DISPATCH(foldRowKernel)(mode, size, count, coordinates);
}
}  // namespace quiltor
#endif
