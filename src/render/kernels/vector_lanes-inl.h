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
HWY_INLINE Lanes::F lowByte(Lanes::I words) {
  return hn::ConvertTo(Lanes::df, hn::And(words, Lanes::i(0xFF))) * Lanes::f(kByteStep);
}

HWY_INLINE Lanes::F highByte(Lanes::I words) {
  const hn::RebindToUnsigned<decltype(Lanes::di)> du;
  const auto shifted = hn::BitCast(Lanes::di, hn::ShiftRight<24>(hn::BitCast(du, words)));
  return hn::ConvertTo(Lanes::df, shifted) * Lanes::f(kByteStep);
}

HWY_INLINE PixelLanes fromBytes(Lanes::I packed) {
  return {lowByte(packed), lowByte(hn::ShiftRight<8>(packed)), lowByte(hn::ShiftRight<16>(packed)), highByte(packed)};
}

HWY_INLINE PixelLanes loadBytes(const uint8_t* pixels) {
  const hn::Repartition<uint8_t, decltype(Lanes::di)> bytes;
  return fromBytes(hn::BitCast(Lanes::di, hn::LoadU(bytes, pixels)));
}

HWY_INLINE PixelLanes loadFloats(const float* pixels) {
  PixelLanes out;
  hn::LoadInterleaved4(Lanes::df, pixels, out.r, out.g, out.b, out.a);
  return out;
}

HWY_INLINE void storeFloats(const PixelLanes& pixels, float* out) {
  hn::StoreInterleaved4(pixels.r, pixels.g, pixels.b, pixels.a, Lanes::df, out);
}

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
