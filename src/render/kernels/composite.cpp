#include "render/kernels/composite.h"

#include <algorithm>
#include <cstring>

#include <hwy/cache_control.h>

#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "render/kernels/composite.cpp"
#include <hwy/foreach_target.h>
//
#include <hwy/highway.h>
#include "render/kernels/blend_formulas-inl.h"
#include "render/kernels/blend_modes.h"
#include "render/kernels/streaming.h"
#include "render/kernels/vector_lanes-inl.h"

HWY_BEFORE_NAMESPACE();
namespace quiltor {
namespace HWY_NAMESPACE {

using L = Lanes;
using Formulas = BlendFormulas<Lanes>;

// A mode that keeps one side's colour and takes an alpha, at most the input's, from the pattern.
template <Lanes::F (*kAlpha)(Lanes::F, Lanes::F), bool kShowsPattern>
struct Matte {
  static constexpr bool kHasOpaque = false;

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
  static constexpr bool kHasOpaque = true;

  static HWY_INLINE PixelLanes blend(const PixelLanes& input, const PixelLanes& pattern) {
    const L::F rest = L::f(1) - pattern.a;
    const L::F alpha = rest * input.a + pattern.a;
    const auto over = [&](L::F i, L::F p) { return i * input.a * rest + pattern.a * kMix(i, p); };
    L::F r = over(input.r, pattern.r), g = over(input.g, pattern.g), b = over(input.b, pattern.b);
    // Divisions take a good part of the time, and most layers are opaque.
    if (HWY_UNLIKELY(!hn::AllTrue(L::df, alpha == L::f(1)))) {
      r = divided(r, alpha);
      g = divided(g, alpha);
      b = divided(b, alpha);
    }
    return {capped(r), capped(g), capped(b), alpha};
  }

  // The same where both are opaque and the input's colours are finite, but for the sign of a zero.
  static HWY_INLINE PixelLanes blendOpaque(const PixelLanes& input, const PixelLanes& pattern) {
    const auto over = [](L::F i, L::F p) { return capped(kMix(i, p)); };
    return {over(input.r, pattern.r), over(input.g, pattern.g), over(input.b, pattern.b), L::f(1)};
  }

  static HWY_INLINE L::F divided(L::F colour, L::F alpha) {
    return L::select(alpha > L::f(0), colour / alpha, L::f(1));
  }
  // A not-a-number stays, because a minimum with it is its second operand.
  static HWY_INLINE L::F capped(L::F colour) { return hn::Min(L::f(1), colour); }
};

// What every pixel of a frame is mixed by: the mode's share and the input's.
struct Shares {
  explicit Shares(double opacity) : mode(L::d(opacity)), input(L::d(1.0 - opacity)), ordinary(opacity <= 1) {}

  HWY_INLINE L::F mix(L::F modeColour, L::F inputColour) const {
    return L::narrow(L::widen(modeColour) * mode + L::widen(inputColour) * input);
  }

  L::D mode, input;
  bool ordinary;  // the input's is not negative, so that what it adds takes the sign from a zero
};

// Whether both are opaque and the input's colours are finite, as those of bytes are.
template <ChannelType kInput>
HWY_INLINE bool areOpaque(const PixelLanes& input, const PixelLanes& pattern) {
  auto opaque = hn::And(input.a == L::f(1), pattern.a == L::f(1));
  if (kInput == ChannelType::Float) opaque = hn::And(opaque, (input.r + input.g + input.b) * L::f(0) == L::f(0));
  return hn::AllTrue(L::df, opaque);
}

template <class Mode, ChannelType kInput>
HWY_INLINE PixelLanes compositePixels(const PixelLanes& input, const PixelLanes& pattern, const Shares& shares) {
  if constexpr (Mode::kHasOpaque) {
    if (HWY_LIKELY(shares.ordinary && areOpaque<kInput>(input, pattern))) {
      const PixelLanes mode = Mode::blendOpaque(input, pattern);
      return {shares.mix(mode.r, input.r), shares.mix(mode.g, input.g), shares.mix(mode.b, input.b), L::f(1)};
    }
  }
  const PixelLanes mode = Mode::blend(input, pattern);
  const auto where = [nothing = input.a <= L::f(0)](L::F in, L::F out) { return L::select(nothing, in, out); };
  return {where(input.r, shares.mix(mode.r, input.r)), where(input.g, shares.mix(mode.g, input.g)),
          where(input.b, shares.mix(mode.b, input.b)), where(input.a, mode.a * input.a)};
}

// count pixels from the places where the pointers lie; the pattern has whole vectors of them.
template <class Mode, ChannelType kInput>
void compositePixelsOf(const PixelRun& pattern, const void* input, const CompositeSettings& how, size_t count,
                       float* result) {
  constexpr size_t kBytes = 4 * (kInput == ChannelType::Byte ? sizeof(uint8_t) : sizeof(float));
  const uint8_t* row = static_cast<const uint8_t*>(input);
  const Shares shares(how.opacity);
  for (size_t i = 0; i < count; i += L::kCount) {
    const uint8_t* from = row + i * kBytes;
    float* to = result + 4 * i;
    for (size_t line = 0; line < L::kCount * kBytes; line += kCacheLineBytes) hwy::Prefetch(from + how.ahead + line);
    const size_t left = count - i;
    HWY_ALIGN uint8_t lastInput[L::kCount * kBytes];
    HWY_ALIGN float last[4 * L::kCount];
    if (HWY_UNLIKELY(left < L::kCount)) {
      std::memset(lastInput, 0, sizeof lastInput);
      std::memcpy(lastInput, from, left * kBytes);
      from = lastInput;
      to = last;
    }
    const PixelLanes under =
        kInput == ChannelType::Byte ? loadBytes(from) : loadFloats(reinterpret_cast<const float*>(from));
    storeFloats(compositePixels<Mode, kInput>(under, loadRun(pattern, i), shares), to);
    if (HWY_UNLIKELY(left < L::kCount)) std::copy_n(last, 4 * left, result + 4 * i);
  }
}

using CompositePixels = void (*)(const PixelRun& pattern, const void* input, const CompositeSettings& how, size_t count,
                                 float* result);

template <ChannelType kInput>
CompositePixels compositeFor(int32_t mode) {
  switch (static_cast<BlendMode>(mode)) {
#define QUILTOR_MATTE(name, formula) \
  case BlendMode::name:              \
    return compositePixelsOf<Matte<Formulas::formula, BlendMode::name == BlendMode::Normal>, kInput>;
#define QUILTOR_MIX(name, formula) \
  case BlendMode::name:            \
    return compositePixelsOf<Mix<Formulas::formula>, kInput>;
    QUILTOR_BLEND_MODES(QUILTOR_MATTE, QUILTOR_MIX)
#undef QUILTOR_MATTE
#undef QUILTOR_MIX
    case BlendMode::Count:
      break;
  }
  return compositePixelsOf<Mix<Formulas::none>, kInput>;
}

// Past the caches: the frame is read again only when all of it has been drawn.
void streamPixels(const float* pixels, size_t count, float* result) {
  const uintptr_t address = reinterpret_cast<uintptr_t>(result);
  const size_t floats = 4 * count;
  if (address % sizeof(float) != 0) {
    std::memcpy(result, pixels, floats * sizeof(float));
    return;
  }
  size_t i = std::min(floats, (kCacheLineBytes - address % kCacheLineBytes) % kCacheLineBytes / sizeof(float));
  std::copy_n(pixels, i, result);
  for (; i + L::kCount <= floats; i += L::kCount) hn::Stream(hn::LoadU(L::df, pixels + i), L::df, result + i);
  std::copy_n(pixels + i, floats - i, result + i);
}

void compositeRunKernel(const PixelRun& pattern, const void* input, ChannelType inputType, const CompositeSettings& how,
                        size_t count, float* result) {
  const CompositePixels composite = inputType == ChannelType::Byte ? compositeFor<ChannelType::Byte>(how.mode)
                                                                   : compositeFor<ChannelType::Float>(how.mode);
  if (!how.streams) return composite(pattern, input, how, count, result);
  HWY_ALIGN float pixels[4 * PixelRun::kLength];
  composite(pattern, input, how, count, pixels);
  streamPixels(pixels, count, result);
}

}  // namespace HWY_NAMESPACE
}  // namespace quiltor
HWY_AFTER_NAMESPACE();

#if HWY_ONCE
namespace quiltor {
HWY_EXPORT(compositeRunKernel);

void compositeRun(const PixelRun& pattern, const void* input, ChannelType inputType, const CompositeSettings& how,
                  size_t count, float* result) {
  HWY_DYNAMIC_DISPATCH(compositeRunKernel)(pattern, input, inputType, how, count, result);
}
}  // namespace quiltor
#endif
