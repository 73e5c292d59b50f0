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

HWY_BEFORE_NAMESPACE();
namespace quiltor {
namespace HWY_NAMESPACE {
namespace hn = hwy::HWY_NAMESPACE;

// A vector of pixels: F holds one 32-bit value per pixel and D the same pixels in 64 bits, with equal lane counts, so
// that the precision of every step is visible in its type. Comparisons go through select; "not equal" is never asked,
// because instruction sets disagree about it for a not-a-number.
struct Lanes {
  static constexpr hn::ScalableTag<double> dd{};
  static constexpr hn::Rebind<float, hn::ScalableTag<double>> df{};
  static constexpr hn::Rebind<int32_t, hn::ScalableTag<double>> di{};
  using D = hn::Vec<decltype(dd)>;
  using F = hn::Vec<decltype(df)>;
  using I = hn::Vec<decltype(di)>;
  static constexpr size_t kCount = HWY_LANES(double);

  static HWY_INLINE F f(float value) { return hn::Set(df, value); }
  static HWY_INLINE D d(double value) { return hn::Set(dd, value); }
  static HWY_INLINE D widen(F value) { return hn::PromoteTo(dd, value); }
  static HWY_INLINE F narrow(D value) { return hn::DemoteTo(df, value); }
  template <class Mask, class V>
  static HWY_INLINE V select(Mask mask, V yes, V no) {
    return hn::IfThenElse(mask, yes, no);
  }
};

// N pixels as four vectors.
struct PixelLanes {
  Lanes::F r, g, b, a;
};

// Four bytes a pixel, in memory order R, G, B, A, as fractions of 255.
HWY_INLINE Lanes::F lowByte(Lanes::I words) {
  return hn::ConvertTo(Lanes::df, hn::And(words, hn::Set(Lanes::di, 0xFF))) * Lanes::f(kByteStep);
}

HWY_INLINE PixelLanes fromBytes(Lanes::I packed) {
  return {lowByte(packed), lowByte(hn::ShiftRight<8>(packed)), lowByte(hn::ShiftRight<16>(packed)),
          lowByte(hn::ShiftRight<24>(packed))};
}

HWY_INLINE PixelLanes loadBytes(const uint8_t* pixels) {
  Lanes::I packed;
  HWY_ALIGN int32_t words[Lanes::kCount];
  hwy::CopyBytes<sizeof words>(pixels, words);
  packed = hn::Load(Lanes::di, words);
  return fromBytes(packed);
}

HWY_INLINE PixelLanes loadFloats(const float* pixels) {
  PixelLanes out;
  hn::LoadInterleaved4(Lanes::df, pixels, out.r, out.g, out.b, out.a);
  return out;
}

HWY_INLINE void storeFloats(const PixelLanes& pixels, float* out) {
  hn::StoreInterleaved4(pixels.r, pixels.g, pixels.b, pixels.a, Lanes::df, out);
}

// Brightness, in 32 bits.
HWY_INLINE Lanes::F luma(Lanes::F r, Lanes::F g, Lanes::F b) {
  return Lanes::f(kLumaRed) * r + Lanes::f(kLumaGreen) * g + Lanes::f(kLumaBlue) * b;
}

}  // namespace HWY_NAMESPACE
}  // namespace quiltor
HWY_AFTER_NAMESPACE();

#endif
