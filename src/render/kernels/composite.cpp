#include "render/kernels/composite.h"

#include <algorithm>
#include <cstring>

#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "render/kernels/composite.cpp"
#include <hwy/foreach_target.h>
//
#include <hwy/highway.h>
#include "render/kernels/blend_formulas-inl.h"
#include "render/kernels/blend_modes.h"
#include "render/kernels/vector_lanes-inl.h"

HWY_BEFORE_NAMESPACE();
namespace quiltor {
namespace HWY_NAMESPACE {

using L = Lanes;
using Formulas = BlendFormulas<Lanes>;

// A mode that keeps one side's colour and takes an alpha, at most the input's, from the pattern.
template <Lanes::F (*kAlpha)(Lanes::F, Lanes::F), bool kShowsPattern>
struct Matte {
  static HWY_INLINE PixelLanes blend(const PixelLanes& input, const PixelLanes& pattern) {
    PixelLanes out = kShowsPattern ? pattern : input;
    const L::F alpha = kAlpha(luma(pattern.r, pattern.g, pattern.b), pattern.a);
    const auto limited = hn::And(alpha >= L::f(0), alpha > input.a);
    out.a = L::select(limited, input.a, alpha);
    return out;
  }
};

// A mode that mixes channel by channel and lays the mix over the input.
template <Lanes::F (*kMix)(Lanes::F, Lanes::F)>
struct Mix {
  static HWY_INLINE PixelLanes blend(const PixelLanes& input, const PixelLanes& pattern) {
    const L::F rest = L::f(1) - pattern.a;
    const L::F alpha = rest * input.a + pattern.a;
    return {over(input.r, input.a, pattern.r, pattern.a, rest, alpha),
            over(input.g, input.a, pattern.g, pattern.a, rest, alpha),
            over(input.b, input.a, pattern.b, pattern.a, rest, alpha), alpha};
  }

  static HWY_INLINE L::F over(L::F i, L::F inputAlpha, L::F p, L::F patternAlpha, L::F rest, L::F alpha) {
    const L::F colour = (i * inputAlpha * rest + patternAlpha * kMix(i, p)) / alpha;
    const L::F capped = L::select(colour > L::f(1), L::f(1), colour);
    return L::select(alpha > L::f(0), capped, L::f(1));
  }
};

HWY_INLINE L::F mixByOpacity(L::F mode, L::F input, L::F inputAlpha, L::D opacity, L::D rest) {
  const L::F mixed = L::narrow(L::widen(mode) * opacity + L::widen(input) * rest);
  return L::select(inputAlpha <= L::f(0), input, mixed);
}

template <class Mode>
HWY_INLINE PixelLanes compositePixels(const PixelLanes& input, const PixelLanes& pattern, L::D opacity, L::D rest) {
  const PixelLanes mode = Mode::blend(input, pattern);
  return {mixByOpacity(mode.r, input.r, input.a, opacity, rest), mixByOpacity(mode.g, input.g, input.a, opacity, rest),
          mixByOpacity(mode.b, input.b, input.a, opacity, rest),
          L::select(input.a <= L::f(0), input.a, mode.a * input.a)};
}

// count is a whole number of vectors.
template <class Mode>
void compositeVectors(const float* input, double opacity, size_t count, float* pattern) {
  const L::D share = L::d(opacity), rest = L::d(1.0 - opacity);
  for (size_t i = 0; i < 4 * count; i += 4 * L::kCount) {
    storeFloats(compositePixels<Mode>(loadFloats(input + i), loadFloats(pattern + i), share, rest), pattern + i);
  }
}

using CompositeVectors = void (*)(const float* input, double opacity, size_t count, float* pattern);

CompositeVectors compositeFor(int32_t mode) {
  switch (static_cast<BlendMode>(mode)) {
#define QUILTOR_MATTE(name, formula) \
  case BlendMode::name:              \
    return compositeVectors<Matte<Formulas::formula, BlendMode::name == BlendMode::Normal>>;
#define QUILTOR_MIX(name, formula) \
  case BlendMode::name:            \
    return compositeVectors<Mix<Formulas::formula>>;
    QUILTOR_BLEND_MODES(QUILTOR_MATTE, QUILTOR_MIX)
#undef QUILTOR_MATTE
#undef QUILTOR_MIX
    case BlendMode::Count:
      break;
  }
  return compositeVectors<Mix<Formulas::none>>;
}

// A block of a row that is not yet in whole vectors of floats; what lies beyond its end is zero.
constexpr size_t kBlock = 16 * L::kCount;

size_t wholeVectors(size_t count) { return (count + L::kCount - 1) / L::kCount * L::kCount; }

void compositeBytes(CompositeVectors composite, const uint8_t* input, double opacity, size_t count, float* pattern) {
  HWY_ALIGN uint8_t bytes[4 * kBlock];
  HWY_ALIGN float floats[4 * kBlock];
  HWY_ALIGN float result[4 * kBlock] = {};
  for (size_t x = 0; x < count; x += kBlock) {
    const size_t length = std::min(kBlock, count - x), whole = wholeVectors(length);
    std::memset(bytes, 0, sizeof bytes);
    std::memcpy(bytes, input + 4 * x, 4 * length);
    for (size_t i = 0; i < 4 * whole; i += 4 * L::kCount) storeFloats(loadBytes(bytes + i), floats + i);
    std::copy_n(pattern + 4 * x, 4 * length, result);
    composite(floats, opacity, whole, result);
    std::copy_n(result, 4 * length, pattern + 4 * x);
  }
}

void compositeFloats(CompositeVectors composite, const float* input, double opacity, size_t count, float* pattern) {
  const size_t whole = count / L::kCount * L::kCount, left = count - whole;
  composite(input, opacity, whole, pattern);
  if (left == 0) return;
  HWY_ALIGN float lastInput[4 * L::kCount] = {};
  HWY_ALIGN float lastPattern[4 * L::kCount] = {};
  std::copy_n(input + 4 * whole, 4 * left, lastInput);
  std::copy_n(pattern + 4 * whole, 4 * left, lastPattern);
  composite(lastInput, opacity, L::kCount, lastPattern);
  std::copy_n(lastPattern, 4 * left, pattern + 4 * whole);
}

void compositeRowKernel(const void* input, ChannelType inputType, int32_t mode, double opacity, size_t count,
                        float* pattern) {
  const CompositeVectors composite = compositeFor(mode);
  if (inputType == ChannelType::Byte) {
    compositeBytes(composite, static_cast<const uint8_t*>(input), opacity, count, pattern);
  } else {
    compositeFloats(composite, static_cast<const float*>(input), opacity, count, pattern);
  }
}

}  // namespace HWY_NAMESPACE
}  // namespace quiltor
HWY_AFTER_NAMESPACE();

#if HWY_ONCE
namespace quiltor {
HWY_EXPORT(compositeRowKernel);

void compositeRow(const void* input, ChannelType inputType, int32_t mode, double opacity, size_t count,
                  float* pattern) {
  HWY_DYNAMIC_DISPATCH(compositeRowKernel)(input, inputType, mode, opacity, count, pattern);
}
}  // namespace quiltor
#endif
