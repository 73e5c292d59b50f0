#include "render/kernels/sample.h"

#include <algorithm>
#include <cstring>
#include <type_traits>

#include "base/checked_size.h"

#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "render/kernels/sample.cpp"
#include <hwy/foreach_target.h>
//
#include <hwy/highway.h>
#include "render/kernels/sample_places-inl.h"
#include "render/kernels/vector_lanes-inl.h"

HWY_BEFORE_NAMESPACE();
namespace quiltor {
namespace HWY_NAMESPACE {

using L = Lanes;
constexpr size_t kLength = PixelRun::kLength;

// Where the pixels of a run find their texels. A row of the pattern is read in pairs of neighbours; the pair of the
// last column is the one before it, and both of its texels are then the right one.
struct RunPlaces {
  HWY_ALIGN int32_t upper[kLength], lower[kLength];  // index of the pair's left texel
  HWY_ALIGN int32_t atEnd[kLength];                  // 1 in the last column, else 0
  HWY_ALIGN int32_t outside[kLength];                // 1 outside of a single tile, else 0; not set in the other modes
  HWY_ALIGN float fx[kLength], fy[kLength];
};

// Places inside the pattern: the texel above and to the left, and how far beyond it the place is.
struct Cell {
  static constexpr hn::Rebind<int32_t, decltype(L::dd)> ints{};
  using Ints = hn::Vec<decltype(ints)>;

  HWY_INLINE explicit Cell(Place at) : place(at), left(hn::Floor(at.x)), upper(hn::Floor(at.y)) {
    column = hn::DemoteTo(ints, left);
    row = hn::DemoteTo(ints, upper);
  }
  HWY_INLINE bool inside(Ints width, Ints height) const {
    const hn::RebindToUnsigned<decltype(ints)> counts;
    const auto fits = [&](Ints number, Ints limit) { return hn::BitCast(counts, number) < hn::BitCast(counts, limit); };
    return hn::AllTrue(counts, hn::And(fits(column, width), fits(row, height)));
  }

  Place place;
  V left, upper;
  Ints column, row;
};

template <TileMode kMode, bool kPlain, bool kNear>
void findPlaces(const PatternPixels& pattern, const RowPlaces& row, double first, size_t count, RunPlaces& out) {
  constexpr auto ints = Cell::ints;
  constexpr hn::Rebind<float, decltype(L::dd)> floats{};
  constexpr TileMode kFold = kMode == TileMode::Mirrored ? TileMode::Mirrored : TileMode::Tiled;
  constexpr bool kAttempts = kNear && kMode != TileMode::Single;
  const RowPlaces places = row;  // nothing that is stored below can change a copy, so it stays in registers
  const Fold<kFold, kNear> foldX(pattern.width), foldY(pattern.height);
  const V width = number(pattern.width), height = number(pattern.height);
  const auto columns = hn::Set(ints, pattern.width), rows = hn::Set(ints, pattern.height),
             lastPair = hn::Set(ints, pattern.width - 2), lastRow = hn::Set(ints, pattern.height - 1);
  const auto foldBoth = [&](Place place) { return Place{foldX(place.x), foldY(place.y)}; };
  V x = hn::Iota(L::dd, 0.0) + number(first);
  for (size_t i = 0; i < count; i += kPlaces, x = x + number(kPlaces)) {
    Place place = places.at<kPlain>(x);
    if constexpr (kMode == TileMode::Single) {
      const auto insideX = hn::And(place.x >= number(0), place.x < width);
      const auto insideY = hn::And(place.y >= number(0), place.y < height);
      const auto inside = hn::And(insideX, insideY);
      place.x = hn::IfThenElseZero(inside, place.x);
      place.y = hn::IfThenElseZero(inside, place.y);
      hn::Store(hn::DemoteTo(ints, hn::IfThenZeroElse(inside, number(1))), ints, out.outside + i);
    } else if constexpr (!kAttempts) {
      place = foldBoth(place);
    }
    Cell cell(kAttempts ? Place{foldX.attempt(place.x), foldY.attempt(place.y)} : place);
    if (kAttempts && HWY_UNLIKELY(!cell.inside(columns, rows))) cell = Cell(foldBoth(place));
    hn::Store(hn::DemoteTo(floats, cell.place.x - cell.left), floats, out.fx + i);
    hn::Store(hn::DemoteTo(floats, cell.place.y - cell.upper), floats, out.fy + i);
    const auto pair = hn::Min(cell.column, lastPair), below = hn::Min(cell.row + hn::Set(ints, 1), lastRow);
    hn::Store(cell.row * columns + pair, ints, out.upper + i);
    hn::Store(below * columns + pair, ints, out.lower + i);
    hn::Store(cell.column - pair, ints, out.atEnd + i);
  }
}

HWY_INLINE L::F bilinear(L::F upperLeft, L::F upperRight, L::F lowerLeft, L::F lowerRight, L::F fx, L::F fy) {
  const L::F top = upperLeft + (upperRight - upperLeft) * fx;
  const L::F bottom = lowerLeft + (lowerRight - lowerLeft) * fx;
  return top + (bottom - top) * fy;
}

// Byte pictures of four bytes a pixel, at least two pixels wide: a pair is one load.
class BytePairs {
 public:
  explicit BytePairs(const PatternPixels& pattern) : bytes_(static_cast<const uint8_t*>(pattern.data)) {}

  void fetch(const RunPlaces& at, size_t count) {
    constexpr size_t kAtOnce = 4;  // so many pixels are in any vector
    for (size_t i = 0; i < count; i += kAtOnce) {
      Pair upper[kAtOnce], lower[kAtOnce];
      for (size_t k = 0; k < kAtOnce; ++k) {
        upper[k] = pair(at.upper[i + k]);
        lower[k] = pair(at.lower[i + k]);
      }
      for (size_t k = 0; k < kAtOnce; ++k) {
        hn::StoreU(upper[k], kPair, upper_ + i + k);
        hn::StoreU(lower[k], kPair, lower_ + i + k);
      }
      HWY_FENCE;  // a compiler that makes vectors of the indices takes them apart again for the loads
    }
  }

  HWY_INLINE PixelLanes pixels(const RunPlaces& at, size_t i) const {
    L::I upperLeft, upperRight, lowerLeft, lowerRight;
    hn::LoadInterleaved2(L::di, reinterpret_cast<const int32_t*>(upper_ + i), upperLeft, upperRight);
    hn::LoadInterleaved2(L::di, reinterpret_cast<const int32_t*>(lower_ + i), lowerLeft, lowerRight);
    const auto atEnd = hn::Load(L::di, at.atEnd + i) > L::i(0);
    upperLeft = L::select(atEnd, upperRight, upperLeft);
    lowerLeft = L::select(atEnd, lowerRight, lowerLeft);
    const L::F fx = hn::Load(L::df, at.fx + i), fy = hn::Load(L::df, at.fy + i);
    const PixelLanes a = fromBytes(upperLeft), b = fromBytes(upperRight), c = fromBytes(lowerLeft),
                     d = fromBytes(lowerRight);
    return {bilinear(a.r, b.r, c.r, d.r, fx, fy), bilinear(a.g, b.g, c.g, d.g, fx, fy),
            bilinear(a.b, b.b, c.b, d.b, fx, fy), a.a};
  }

 protected:
  const uint8_t* bytes_;
  HWY_ALIGN uint64_t upper_[kLength], lower_[kLength];

 private:
  static constexpr hn::FixedTag<uint64_t, 1> kPair{};
  using Pair = hn::Vec<decltype(kPair)>;

  HWY_INLINE Pair pair(int32_t left) const {
    return hn::LoadU(kPair, reinterpret_cast<const uint64_t*>(bytes_ + ptrdiff_t{4} * left));
  }
};

// All other byte pictures; alpha is 1 unless there are four bytes a pixel.
class ByteTexels : public BytePairs {
 public:
  explicit ByteTexels(const PatternPixels& pattern)
      : BytePairs(pattern), lastWord_(pattern.size - sizeof(uint32_t)), stride_(pattern.bytesPerPixel) {}

  void fetch(const RunPlaces& at, size_t count) {
    for (size_t i = 0; i < count; ++i) {
      upper_[i] = texel(at.upper[i] + at.atEnd[i]) | uint64_t{texel(at.upper[i] + 1)} << 32;
      lower_[i] = texel(at.lower[i] + at.atEnd[i]) | uint64_t{texel(at.lower[i] + 1)} << 32;
    }
  }

  HWY_INLINE PixelLanes pixels(const RunPlaces& at, size_t i) const {
    PixelLanes out = BytePairs::pixels(at, i);
    if (stride_ != 4) out.a = L::f(1);
    return out;
  }

 private:
  HWY_INLINE uint32_t texel(int32_t index) const {
    const size_t offset = static_cast<size_t>(index) * static_cast<size_t>(stride_);
    const size_t word = std::min(offset, lastWord_);
    uint32_t value;
    std::memcpy(&value, bytes_ + word, sizeof value);
    return value >> (8 * (offset - word));
  }

  size_t lastWord_;
  int32_t stride_;
};

// Float pictures: the channels of a pixel are the lanes of a vector.
class FloatTexels {
 public:
  explicit FloatTexels(const PatternPixels& pattern) : floats_(static_cast<const float*>(pattern.data)) {}

  void fetch(const RunPlaces& at, size_t count) {
    const hn::FixedTag<float, 4> pixel;
    const auto colour = hn::FirstN(pixel, 3);
    for (size_t i = 0; i < count; ++i) {
      const float* const upper = floats_ + ptrdiff_t{4} * at.upper[i];
      const float* const lower = floats_ + ptrdiff_t{4} * at.lower[i];
      const auto upperRight = hn::LoadU(pixel, upper + 4), lowerRight = hn::LoadU(pixel, lower + 4);
      auto upperLeft = upperRight, lowerLeft = lowerRight;
      if (HWY_LIKELY(at.atEnd[i] == 0)) {
        upperLeft = hn::LoadU(pixel, upper);
        lowerLeft = hn::LoadU(pixel, lower);
      }
      const auto fx = hn::Set(pixel, at.fx[i]), fy = hn::Set(pixel, at.fy[i]);
      const auto top = upperLeft + (upperRight - upperLeft) * fx;
      const auto bottom = lowerLeft + (lowerRight - lowerLeft) * fx;
      hn::Store(hn::IfThenElse(colour, top + (bottom - top) * fy, upperLeft), pixel, mixed_ + 4 * i);
    }
  }

  HWY_INLINE PixelLanes pixels(const RunPlaces&, size_t i) const { return loadFloats(mixed_ + 4 * i); }

 private:
  const float* floats_;
  HWY_ALIGN float mixed_[4 * kLength];
};

// The tint replaces a colour by its own scaled with the colour's brightness.
HWY_INLINE L::F tintChannel(L::F channel, L::D tint, L::D brightness, L::D rest) {
  return L::narrow(tint * brightness + rest * L::widen(channel));
}

HWY_INLINE PixelLanes invert(const PixelLanes& in) { return {L::f(1) - in.r, L::f(1) - in.g, L::f(1) - in.b, in.a}; }

HWY_INLINE PixelLanes tint(const PixelLanes& in, const SampleTransform& t) {
  const L::D brightness = L::widen(luma(in.r, in.g, in.b)), rest = L::d(1.0 - t.tintAmount);
  return {tintChannel(in.r, L::d(t.tintAmount * static_cast<double>(t.tintR)), brightness, rest),
          tintChannel(in.g, L::d(t.tintAmount * static_cast<double>(t.tintG)), brightness, rest),
          tintChannel(in.b, L::d(t.tintAmount * static_cast<double>(t.tintB)), brightness, rest), in.a};
}

enum class Tint { None, Nothing, Some };

// A tint of nothing leaves finite colours as they are, and those of bytes are finite. Others become what the tint of
// nothing makes of them, which 32 bits hold exactly: a zero or a not-a-number is added.
HWY_INLINE PixelLanes tintNothing(const PixelLanes& in, const SampleTransform& t) {
  const L::F brightness = luma(in.r, in.g, in.b);
  const auto nothing = [&](float tint) { return L::f(static_cast<float>(t.tintAmount) * tint) * brightness; };
  return {nothing(t.tintR) + in.r, nothing(t.tintG) + in.g, nothing(t.tintB) + in.b, in.a};
}

template <Tint kTint, class Texels>
void colourRun(const Texels& texels, const SampleTransform& t, const RunPlaces& at, size_t count, PixelRun& out) {
  const bool inverts = t.invertOn, single = t.tileMode == TileMode::Single;
  for (size_t i = 0; i < count; i += L::kCount) {
    PixelLanes pixels = texels.pixels(at, i);
    if (inverts) pixels = invert(pixels);
    if (kTint == Tint::Nothing) pixels = tintNothing(pixels, t);
    if (kTint == Tint::Some) pixels = tint(pixels, t);
    if (single) {
      const auto outside = hn::RebindMask(L::df, hn::Load(L::di, at.outside + i) > L::i(0));
      pixels = {hn::IfThenZeroElse(outside, pixels.r), hn::IfThenZeroElse(outside, pixels.g),
                hn::IfThenZeroElse(outside, pixels.b), L::select(outside, L::f(1), pixels.a)};
    }
    storeRun(pixels, out, i);
  }
}

template <TileMode kMode>
void findPlacesIn(const PatternPixels& pattern, const RowPlaces& row, double first, size_t count, RunPlaces& out) {
  if (row.near(first, count)) {
    findPlaces<kMode, true, true>(pattern, row, first, count, out);
  } else if (row.plain()) {
    findPlaces<kMode, true, false>(pattern, row, first, count, out);
  } else {
    findPlaces<kMode, false, false>(pattern, row, first, count, out);
  }
}

template <class Texels>
void sampleRunFrom(const PatternPixels& pattern, const SampleTransform& t, int32_t x, int32_t y, size_t count,
                   PixelRun& out) {
  const size_t whole = (count + L::kCount - 1) / L::kCount * L::kCount;
  const RowPlaces row(pattern, t, y);
  RunPlaces places;
  switch (t.tileMode) {
    case TileMode::Single:
      findPlacesIn<TileMode::Single>(pattern, row, x, whole, places);
      break;
    case TileMode::Tiled:
      findPlacesIn<TileMode::Tiled>(pattern, row, x, whole, places);
      break;
    case TileMode::Mirrored:
      findPlacesIn<TileMode::Mirrored>(pattern, row, x, whole, places);
      break;
  }
  Texels texels(pattern);
  texels.fetch(places, whole);
  constexpr Tint kUntinted = std::is_same_v<Texels, FloatTexels> ? Tint::Nothing : Tint::None;
  if (t.tintAmount == 0) {
    colourRun<kUntinted>(texels, t, places, whole, out);
  } else {
    colourRun<Tint::Some>(texels, t, places, whole, out);
  }
}

void sampleRunKernel(const PatternPixels& pattern, const SampleTransform& transform, int32_t x, int32_t y, size_t count,
                     PixelRun& out) {
  if (pattern.type == ChannelType::Float) {
    sampleRunFrom<FloatTexels>(pattern, transform, x, y, count, out);
  } else if (pattern.bytesPerPixel == 4 && pattern.width >= 2) {
    sampleRunFrom<BytePairs>(pattern, transform, x, y, count, out);
  } else {
    sampleRunFrom<ByteTexels>(pattern, transform, x, y, count, out);
  }
}

template <TileMode kMode>
void foldRowAs(int32_t size, size_t count, double* coordinates) {
  const Fold<kMode, false> fold(size);
  size_t i = 0;
  for (; i + kPlaces <= count; i += kPlaces) {
    hn::StoreU(fold(hn::LoadU(L::dd, coordinates + i)), L::dd, coordinates + i);
  }
  if (const size_t left = count - i; left > 0) {
    double last[kPlaces] = {};
    std::copy_n(coordinates + i, left, last);
    hn::StoreU(fold(hn::LoadU(L::dd, last)), L::dd, last);
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
HWY_EXPORT(sampleRunKernel);
HWY_EXPORT(foldRowKernel);

bool PatternPixels::usable() const {
  if (!data || width < 1 || height < 1 || bytesPerPixel < 1) return false;
  const auto pixels = checkedProduct({width, height});
  if (!pixels || *pixels > INT32_MAX) return false;
  if (type == ChannelType::Float) {
    const auto needed = checkedProduct({width, height, 4 * sizeof(float)});
    return needed && static_cast<uint64_t>(*needed) <= size;
  }
  const auto toLastPixel = checkedProduct({*pixels - 1, bytesPerPixel});
  return toLastPixel && static_cast<uint64_t>(*toLastPixel) + static_cast<uint64_t>(std::max(3, bytesPerPixel)) <= size;
}

void sampleRun(const PatternPixels& pattern, const SampleTransform& transform, int32_t x, int32_t y, size_t count,
               PixelRun& out) {
  // Texels are read as words of four bytes, which a picture of one opaque pixel does not have.
  if (pattern.type == ChannelType::Byte && pattern.size < sizeof(uint32_t)) {
    uint8_t padded[sizeof(uint32_t)] = {};
    std::memcpy(padded, pattern.data, pattern.size);
    PatternPixels wide = pattern;
    wide.data = padded;
    wide.size = sizeof padded;
    return HWY_DYNAMIC_DISPATCH(sampleRunKernel)(wide, transform, x, y, count, out);
  }
  HWY_DYNAMIC_DISPATCH(sampleRunKernel)(pattern, transform, x, y, count, out);
}

void foldRow(TileMode mode, int32_t size, size_t count, double* coordinates) {
  HWY_DYNAMIC_DISPATCH(foldRowKernel)(mode, size, count, coordinates);
}
}  // namespace quiltor
#endif
