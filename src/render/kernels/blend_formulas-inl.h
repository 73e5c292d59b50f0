// The formulas of the blend modes, once each. L is a vector of pixels: L::F holds 32-bit values, L::D the same in 64
// bits; what is computed in which precision shows in the types. i is a channel of the input layer, p of the pattern.
#if defined(QUILTOR_BLEND_FORMULAS_INL_H) == defined(HWY_TARGET_TOGGLE)
#ifdef QUILTOR_BLEND_FORMULAS_INL_H
#undef QUILTOR_BLEND_FORMULAS_INL_H
#else
#define QUILTOR_BLEND_FORMULAS_INL_H
#endif

#include <hwy/highway.h>
#include "render/kernels/vector_lanes-inl.h"

HWY_BEFORE_NAMESPACE();
namespace quiltor {
namespace HWY_NAMESPACE {

template <class L>
struct BlendFormulas {
  using F = typename L::F;
  using D = typename L::D;

  // A not-a-number passes through the first and becomes 0 in the second.
  static HWY_INLINE F capAtOne(F v) { return L::select(v >= L::f(1), L::f(1), v); }
  static HWY_INLINE F floorAtZero(F v) { return L::select(v > L::f(0), v, L::f(0)); }

  // Alpha of the matte modes, before it is limited to the input's. l is the pattern's brightness, a its alpha.
  static HWY_INLINE F normal(F, F a) { return a; }
  static HWY_INLINE F stencilAlpha(F, F a) { return a; }
  static HWY_INLINE F stencilLuma(F l, F) { return limitedLuma(l); }
  static HWY_INLINE F silhouetteAlpha(F, F a) { return L::f(1) - a; }
  static HWY_INLINE F silhouetteLuma(F l, F) { return L::f(1) - limitedLuma(l); }
  static HWY_INLINE F limitedLuma(F l) { return L::select(l > L::f(1), L::f(1), l); }

  // Colour of the mix modes, per channel.
  static HWY_INLINE F lighten(F i, F p) { return L::select(i > p, i, p); }
  static HWY_INLINE F darken(F i, F p) { return L::select(i < p, i, p); }
  static HWY_INLINE F multiply(F i, F p) { return i * p; }
  static HWY_INLINE F average(F i, F p) { return (i + p) * L::f(0.5f); }
  static HWY_INLINE F difference(F i, F p) { return hn::Abs(p - i); }
  static HWY_INLINE F negation(F i, F p) { return L::narrow(L::d(1) - L::widen(hn::Abs((L::f(1) - p) - i))); }
  static HWY_INLINE F exclusion(F i, F p) { return i + p - L::f(2) * p * i; }
  static HWY_INLINE F screen(F i, F p) { return L::f(1) - (L::f(1) - i) * (L::f(1) - p); }

  // Deliberate: Overlay asks the pattern which half it is in, Hard Light asks the input.
  static HWY_INLINE F overlay(F i, F p) {
    const D wi = L::widen(i), wp = L::widen(p);
    return L::select(p >= L::f(0.5f), L::narrow(L::d(1) - L::d(2) * (L::d(1) - wp) * (L::d(1) - wi)),
                     L::narrow(L::d(2) * wp * wi));
  }
  static HWY_INLINE F hardLight(F i, F p) {
    const D wi = L::widen(i), wp = L::widen(p);
    return L::select(i >= L::f(0.5f), L::narrow(L::d(1) - L::d(2) * (L::d(1) - wi) * (L::d(1) - wp)),
                     L::narrow(L::d(2) * wi * wp));
  }
  static HWY_INLINE F softLight(F i, F p) {
    const D wi = L::widen(i), wp = L::widen(p), root = L::widen(hn::Sqrt(p));
    const D light = root * (L::d(2) * wi - L::d(1)) + (L::d(1) - wi) * (L::d(2) * wp);
    const D dark = (L::d(1) - L::d(2) * wi) * (wp * wp) + L::d(2) * wp * wi;
    return L::select(i >= L::f(0.5f), L::narrow(light), L::narrow(dark));
  }

  // Deliberate: in the dodge, burn, light and reflect modes the input is the divisor or the test and the pattern is the
  // base that they act on.
  static HWY_INLINE F colorDodge(F i, F p) {
    return L::select(i == L::f(1), i, capAtOne(L::narrow(L::widen(p) / (L::d(1) - L::widen(i)))));
  }
  static HWY_INLINE F colorBurn(F i, F p) {
    return L::select(i == L::f(0), i, floorAtZero(L::narrow(L::d(1) - (L::d(1) - L::widen(p)) / L::widen(i))));
  }
  static HWY_INLINE F linearDodge(F i, F p) { return capAtOne(i + p); }
  static HWY_INLINE F linearBurn(F i, F p) { return floorAtZero(L::narrow(L::widen(i + p) - L::d(1))); }
  static HWY_INLINE F linearLight(F i, F p) {
    const D wi = L::widen(i), wp = L::widen(p);
    return L::select(i >= L::f(0.5f), capAtOne(L::narrow((wi - L::d(0.5)) * L::d(2) + wp)),
                     floorAtZero(L::narrow(L::d(2) * wi + wp - L::d(1))));
  }
  static HWY_INLINE F vividLight(F i, F p) {
    return L::select(i >= L::f(0.5f), colorDodge((i - L::f(0.5f)) * L::f(2), p), colorBurn(L::f(2) * i, p));
  }
  static HWY_INLINE F pinLight(F i, F p) {
    const F upper = (i - L::f(0.5f)) * L::f(2), lower = L::f(2) * i;
    return L::select(i >= L::f(0.5f), L::select(upper > p, upper, p), L::select(lower >= p, p, lower));
  }
  static HWY_INLINE F hardMix(F i, F p) { return L::select(vividLight(i, p) >= L::f(0.5f), L::f(1), L::f(0)); }
  static HWY_INLINE F reflect(F i, F p) {
    const D wp = L::widen(p);
    return L::select(i == L::f(1), i, capAtOne(L::narrow(wp * wp / (L::d(1) - L::widen(i)))));
  }
  static HWY_INLINE F glow(F i, F p) {
    const D wi = L::widen(i);
    return L::select(p == L::f(1), p, capAtOne(L::narrow(wi * wi / (L::d(1) - L::widen(p)))));
  }
  static HWY_INLINE F phoenix(F i, F p) { return L::select(i < p, i, p) - L::select(i > p, i, p) + L::f(1); }
  static HWY_INLINE F none(F, F) { return L::f(0); }
};

}  // namespace HWY_NAMESPACE
}  // namespace quiltor
HWY_AFTER_NAMESPACE();

#endif
