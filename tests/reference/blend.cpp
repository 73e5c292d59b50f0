#include "tests/reference/blend.h"

#include <cmath>

// Float where the effect computes in 32 bits, double where it computes in 64. Conditions are written the way round that
// decides what a not-a-number does.
namespace quiltor::reference {
namespace {

float stored(double value) { return static_cast<float>(value); }

float atMostOne(double value) {
  const float v = stored(value);
  return v >= 1 ? 1.0f : v;
}

float atLeastZero(double value) {
  const float v = stored(value);
  return v > 0 ? v : 0.0f;
}

float vividLight(float i, float p) {
  if (i >= 0.5f) {
    const float t = stored((static_cast<double>(i) - 0.5) * 2.0);
    if (t == 1) return t;
    return atMostOne(static_cast<double>(p) / (1.0 - t));
  }
  const float t = stored(2.0 * i);
  if (t == 0) return t;
  return atLeastZero(1.0 - (1.0 - p) / t);
}

float linearLight(float i, float p) {
  if (i >= 0.5f) return atMostOne((static_cast<double>(i) - 0.5) * 2.0 + p);
  return atLeastZero(2.0 * i + p - 1.0);
}

float pinLight(float i, float p) {
  if (i >= 0.5f) {
    const float t = stored((static_cast<double>(i) - 0.5) * 2.0);
    return t > p ? t : p;
  }
  const float t = stored(2.0 * i);
  return t >= p ? p : t;
}

float softLight(float i, float p) {
  const double di = i;
  const double dp = p;
  if (i >= 0.5f) return stored(static_cast<double>(std::sqrt(p)) * (2.0 * di - 1.0) + (1.0 - di) * (2.0 * dp));
  return stored((1.0 - 2.0 * di) * (dp * dp) + 2.0 * dp * di);
}

float product(float i, float p) { return stored(2.0 * static_cast<double>(p) * i); }

float inverseProduct(float i, float p) { return stored(1.0 - 2.0 * (1.0 - static_cast<double>(p)) * (1.0 - i)); }

float luma(const Pixel& p) {
  const float sum = 0.375f * p.r + 0.5f * p.g + 0.125f * p.b;
  return sum > 1 ? 1.0f : sum;
}

float limitedTo(float alpha, float inputAlpha) { return alpha >= 0 && alpha > inputAlpha ? inputAlpha : alpha; }

float over(float input, float inputAlpha, float mix, float patternAlpha, float alpha) {
  if (!(alpha > 0)) return 1;
  const float result = (input * inputAlpha * (1 - patternAlpha) + patternAlpha * mix) / alpha;
  return result > 1 ? 1.0f : result;
}

Pixel blend(int mode, const Pixel& i, const Pixel& p) {
  switch (mode) {
    case 0:
      return {p.r, p.g, p.b, limitedTo(p.a, i.a)};
    case 1:
      return {i.r, i.g, i.b, limitedTo(p.a, i.a)};
    case 2:
      return {i.r, i.g, i.b, limitedTo(luma(p), i.a)};
    case 3:
      return {i.r, i.g, i.b, limitedTo(1 - p.a, i.a)};
    case 4:
      return {i.r, i.g, i.b, limitedTo(1 - luma(p), i.a)};
    default: {
      const float alpha = (1 - p.a) * i.a + p.a;
      return {over(i.r, i.a, mixChannel(mode, i.r, p.r), p.a, alpha),
              over(i.g, i.a, mixChannel(mode, i.g, p.g), p.a, alpha),
              over(i.b, i.a, mixChannel(mode, i.b, p.b), p.a, alpha), alpha};
    }
  }
}

}  // namespace

float mixChannel(int mode, float i, float p) {
  const double di = i;
  const double dp = p;
  switch (mode) {
    case 5:  // Lighten
      return i > p ? i : p;
    case 6:  // Darken
      return i < p ? i : p;
    case 7:  // Multiply
      return i * p;
    case 8:  // Average
      return (i + p) * 0.5f;
    case 9:  // Difference
      return std::fabs(p - i);
    case 10:  // Negation
      return stored(1.0 - std::fabs(static_cast<double>((1.0f - p) - i)));
    case 11:  // Exclusion
      return i + p - 2.0f * p * i;
    case 12:  // Screen
      return 1.0f - (1.0f - i) * (1.0f - p);
    case 13:  // Overlay
      return p >= 0.5f ? inverseProduct(i, p) : product(i, p);
    case 14:
      return softLight(i, p);
    case 15:  // Hard Light
      return i >= 0.5f ? inverseProduct(i, p) : product(i, p);
    case 16:  // Color Dodge
      return i == 1 ? i : atMostOne(dp / (1.0 - di));
    case 17:  // Color Burn
      return i == 0 ? i : atLeastZero(1.0 - (1.0 - dp) / di);
    case 18:  // Linear Dodge
      return atMostOne(i + p);
    case 19:  // Linear Burn
      return atLeastZero(static_cast<double>(i + p) - 1.0);
    case 20:
      return linearLight(i, p);
    case 21:
      return vividLight(i, p);
    case 22:
      return pinLight(i, p);
    case 23:  // Hard Mix
      return vividLight(i, p) >= 0.5f ? 1.0f : 0.0f;
    case 24:  // Reflect
      return i == 1 ? i : atMostOne(dp * dp / (1.0 - di));
    case 25:  // Glow
      return p == 1 ? p : atMostOne(di * di / (1.0 - dp));
    case 26:  // Phoenix
      return std::fmin(i, p) - std::fmax(i, p) + 1.0f;
    default:
      return 0;
  }
}

Pixel composite(int mode, float opacity, const Pixel& input, const Pixel& pattern) {
  if (input.a <= 0) return input;
  const Pixel mixed = blend(mode, input, pattern);
  const double share = static_cast<double>(opacity) * 0.01;
  const auto faded = [share](float result, float original) {
    return stored(static_cast<double>(result) * share + static_cast<double>(original) * (1.0 - share));
  };
  return {faded(mixed.r, input.r), faded(mixed.g, input.g), faded(mixed.b, input.b), mixed.a * input.a};
}

}  // namespace quiltor::reference
