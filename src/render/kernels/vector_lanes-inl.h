// The one place that knows the vector library. Included once per instruction set, after foreach_target.h.
#if defined(QUILTOR_VECTOR_LANES_INL_H) == defined(HWY_TARGET_TOGGLE)
#ifdef QUILTOR_VECTOR_LANES_INL_H
#undef QUILTOR_VECTOR_LANES_INL_H
#else
#define QUILTOR_VECTOR_LANES_INL_H
#endif

#include <cstddef>
#include <cstdint>

#include <hwy/highway.h>
#include "render/kernels/channel_scale.h"
#include "render/kernels/pixel_run.h"

HWY_BEFORE_NAMESPACE();
namespace quiltor {
namespace HWY_NAMESPACE {
namespace hn = hwy::HWY_NAMESPACE;

// A vector of pixels: F holds one 32-bit value per pixel and D the same pixels in 64 bits, in two vectors, so that the
// precision of every step is visible in its type. Comparisons go through select; "not equal" is never asked, because
// instruction sets disagree about it for a not-a-number.
struct Lanes {
  static constexpr hn::ScalableTag<float> df{};
  static constexpr hn::ScalableTag<int32_t> di{};
  static constexpr hn::ScalableTag<double> dd{};
  static constexpr hn::Half<hn::ScalableTag<float>> half{};
  using F = hn::Vec<decltype(df)>;
  using I = hn::Vec<decltype(di)>;
  struct D {
    hn::Vec<decltype(dd)> low, high;
  };
  static constexpr size_t kCount = HWY_LANES(float);

  static HWY_INLINE F f(float value) { return hn::Set(df, value); }
  static HWY_INLINE I i(int32_t value) { return hn::Set(di, value); }
  static HWY_INLINE D d(double value) { return {hn::Set(dd, value), hn::Set(dd, value)}; }
  static HWY_INLINE D widen(F value) {
    return {hn::PromoteTo(dd, hn::LowerHalf(half, value)), hn::PromoteTo(dd, hn::UpperHalf(half, value))};
  }
  static HWY_INLINE F narrow(D value) {
    return hn::Combine(df, hn::DemoteTo(half, value.high), hn::DemoteTo(half, value.low));
  }
  template <class Mask, class V>
  static HWY_INLINE V select(Mask mask, V yes, V no) {
    return hn::IfThenElse(mask, yes, no);
  }
};

HWY_INLINE Lanes::D operator+(Lanes::D a, Lanes::D b) { return {a.low + b.low, a.high + b.high}; }
HWY_INLINE Lanes::D operator-(Lanes::D a, Lanes::D b) { return {a.low - b.low, a.high - b.high}; }
HWY_INLINE Lanes::D operator*(Lanes::D a, Lanes::D b) { return {a.low * b.low, a.high * b.high}; }
HWY_INLINE Lanes::D operator/(Lanes::D a, Lanes::D b) { return {a.low / b.low, a.high / b.high}; }

static_assert(PixelRun::kLength % Lanes::kCount == 0);

// As many pixels as a vector has lanes.
struct PixelLanes {
  Lanes::F r, g, b, a;
};

// Four bytes a pixel, in memory order R, G, B, A, as fractions of 255.
template <size_t kByte>
HWY_INLINE Lanes::F byteOf(Lanes::I packed) {
  const hn::Repartition<uint8_t, decltype(Lanes::di)> bytes;
  constexpr uint8_t k = kByte, kNone = 0x80;
  alignas(16) static constexpr uint8_t kPlaces[16] = {k,     kNone, kNone, kNone, k + 4,  kNone, kNone, kNone,
                                                      k + 8, kNone, kNone, kNone, k + 12, kNone, kNone, kNone};
  const auto found = hn::TableLookupBytesOr0(hn::BitCast(bytes, packed), hn::LoadDup128(bytes, kPlaces));
  return hn::ConvertTo(Lanes::df, hn::BitCast(Lanes::di, found)) * Lanes::f(kByteStep);
}

template <>
HWY_INLINE Lanes::F byteOf<0>(Lanes::I packed) {
  return hn::ConvertTo(Lanes::df, hn::And(packed, Lanes::i(0xFF))) * Lanes::f(kByteStep);
}

HWY_INLINE PixelLanes fromBytes(Lanes::I packed) {
  return {byteOf<0>(packed), byteOf<1>(packed), byteOf<2>(packed), byteOf<3>(packed)};
}

HWY_INLINE PixelLanes loadBytes(const uint8_t* pixels) {
  const hn::Repartition<uint8_t, decltype(Lanes::di)> bytes;
  return fromBytes(hn::BitCast(Lanes::di, hn::LoadU(bytes, pixels)));
}

#if HWY_TARGET == HWY_AVX3
// Eight shuffles that take lanes from anywhere in two vectors; the library's way takes sixteen that do not.
HWY_INLINE PixelLanes loadFloats(const float* pixels) {
  constexpr auto d = Lanes::df;
  struct Halves {
    Lanes::F redBlue, greenAlpha;
  };
  const auto pixelsFrom = [&](const float* first) {
    const Lanes::F low = hn::LoadU(d, first), high = hn::LoadU(d, first + Lanes::kCount);
    return Halves{hn::ConcatEven(d, high, low), hn::ConcatOdd(d, high, low)};
  };
  const Halves low = pixelsFrom(pixels), high = pixelsFrom(pixels + 2 * Lanes::kCount);
  return {hn::ConcatEven(d, high.redBlue, low.redBlue), hn::ConcatEven(d, high.greenAlpha, low.greenAlpha),
          hn::ConcatOdd(d, high.redBlue, low.redBlue), hn::ConcatOdd(d, high.greenAlpha, low.greenAlpha)};
}

// The first or second half of the lanes of both in turn, in groups of one or two.
template <int kGroup, int kHalf>
HWY_INLINE Lanes::F interleave(Lanes::F even, Lanes::F odd) {
  alignas(64) static constexpr int32_t kPlaces[2][16] = {{0, 16, 1, 17, 2, 18, 3, 19, 4, 20, 5, 21, 6, 22, 7, 23},
                                                         {0, 1, 16, 17, 2, 3, 18, 19, 4, 5, 20, 21, 6, 7, 22, 23}};
  const Lanes::I places = hn::Load(Lanes::di, kPlaces[kGroup - 1]) + Lanes::i(8 * kHalf);
  return Lanes::F{_mm512_permutex2var_ps(even.raw, places.raw, odd.raw)};
}

HWY_INLINE void storeFloats(const PixelLanes& pixels, float* out) {
  const Lanes::F redGreen = interleave<1, 0>(pixels.r, pixels.g), blueAlpha = interleave<1, 0>(pixels.b, pixels.a);
  hn::StoreU(interleave<2, 0>(redGreen, blueAlpha), Lanes::df, out);
  hn::StoreU(interleave<2, 1>(redGreen, blueAlpha), Lanes::df, out + Lanes::kCount);
  const Lanes::F redGreen2 = interleave<1, 1>(pixels.r, pixels.g), blueAlpha2 = interleave<1, 1>(pixels.b, pixels.a);
  hn::StoreU(interleave<2, 0>(redGreen2, blueAlpha2), Lanes::df, out + 2 * Lanes::kCount);
  hn::StoreU(interleave<2, 1>(redGreen2, blueAlpha2), Lanes::df, out + 3 * Lanes::kCount);
}
#else
HWY_INLINE PixelLanes loadFloats(const float* pixels) {
  PixelLanes out;
  hn::LoadInterleaved4(Lanes::df, pixels, out.r, out.g, out.b, out.a);
  return out;
}

HWY_INLINE void storeFloats(const PixelLanes& pixels, float* out) {
  hn::StoreInterleaved4(pixels.r, pixels.g, pixels.b, pixels.a, Lanes::df, out);
}
#endif

HWY_INLINE PixelLanes loadRun(const PixelRun& run, size_t at) {
  return {hn::Load(Lanes::df, run.r + at), hn::Load(Lanes::df, run.g + at), hn::Load(Lanes::df, run.b + at),
          hn::Load(Lanes::df, run.a + at)};
}

HWY_INLINE void storeRun(const PixelLanes& pixels, PixelRun& run, size_t at) {
  hn::Store(pixels.r, Lanes::df, run.r + at);
  hn::Store(pixels.g, Lanes::df, run.g + at);
  hn::Store(pixels.b, Lanes::df, run.b + at);
  hn::Store(pixels.a, Lanes::df, run.a + at);
}

// Brightness, in 32 bits.
HWY_INLINE Lanes::F luma(Lanes::F r, Lanes::F g, Lanes::F b) {
  return Lanes::f(kLumaRed) * r + Lanes::f(kLumaGreen) * g + Lanes::f(kLumaBlue) * b;
}

}  // namespace HWY_NAMESPACE
}  // namespace quiltor
HWY_AFTER_NAMESPACE();

#endif
