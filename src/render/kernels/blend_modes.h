#pragma once

#include <cstdint>

namespace quiltor {

// The blend modes in menu order, each with the name of its formula. MATTE modes compute an alpha from the pattern, MIX
// modes a colour per channel that is then composited over the input. The enumeration, the dispatch and the lists that
// tests and benchmarks walk through are all made from this one.
#define QUILTOR_BLEND_MODES(MATTE, MIX)   \
  MATTE(Normal, normal)                   \
  MATTE(StencilAlpha, stencilAlpha)       \
  MATTE(StencilLuma, stencilLuma)         \
  MATTE(SilhouetteAlpha, silhouetteAlpha) \
  MATTE(SilhouetteLuma, silhouetteLuma)   \
  MIX(Lighten, lighten)                   \
  MIX(Darken, darken)                     \
  MIX(Multiply, multiply)                 \
  MIX(Average, average)                   \
  MIX(Difference, difference)             \
  MIX(Negation, negation)                 \
  MIX(Exclusion, exclusion)               \
  MIX(Screen, screen)                     \
  MIX(Overlay, overlay)                   \
  MIX(SoftLight, softLight)               \
  MIX(HardLight, hardLight)               \
  MIX(ColorDodge, colorDodge)             \
  MIX(ColorBurn, colorBurn)               \
  MIX(LinearDodge, linearDodge)           \
  MIX(LinearBurn, linearBurn)             \
  MIX(LinearLight, linearLight)           \
  MIX(VividLight, vividLight)             \
  MIX(PinLight, pinLight)                 \
  MIX(HardMix, hardMix)                   \
  MIX(Reflect, reflect)                   \
  MIX(Glow, glow)                         \
  MIX(Phoenix, phoenix)

enum class BlendMode : int32_t {
#define QUILTOR_ENUMERATOR(mode, formula) mode,
  QUILTOR_BLEND_MODES(QUILTOR_ENUMERATOR, QUILTOR_ENUMERATOR)
#undef QUILTOR_ENUMERATOR
      Count
};

}  // namespace quiltor
