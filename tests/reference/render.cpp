#include "tests/reference/render.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <numbers>

#include "tests/reference/blend.h"

namespace quiltor::reference {
namespace {

double reciprocalPercent(double percent) {
  const double quotient = 100.0 / percent;
  return quotient == 0 ? 1.0 : quotient;
}

// One coordinate brought into a pattern of the given size; `outside` for the single tile.
double fold(double value, int size, Tile tile) {
  const double extent = size;
  if (!std::isfinite(value)) return 0;
  if (tile == Tile::Mirrored) {
    value = std::fmod(std::fabs(value), 2 * extent);
    if (value >= extent) value = 2 * extent - value;
    if (value < 0) return 0;
    return value >= extent ? extent - 1 : value;
  }
  while (value < 0) value += extent;
  while (value >= extent) value -= extent;
  return value;
}

bool isOutside(const Position& at, const Picture& pattern) {
  return !(at.x >= 0 && at.x < pattern.width && at.y >= 0 && at.y < pattern.height);
}

float interpolated(float nearTop, float farTop, float nearBottom, float farBottom, float fx, float fy) {
  const float top = nearTop + (farTop - nearTop) * fx;
  const float bottom = nearBottom + (farBottom - nearBottom) * fx;
  return top + (bottom - top) * fy;
}

// Alpha is the near pixel's; far neighbours stop at the last row and column in every tile mode.
Pixel readAt(const Picture& pattern, const Position& at) {
  const int x0 = static_cast<int>(std::floor(at.x));
  const int y0 = static_cast<int>(std::floor(at.y));
  const auto fx = static_cast<float>(at.x - x0);
  const auto fy = static_cast<float>(at.y - y0);
  const int x1 = std::min(x0 + 1, pattern.width - 1);
  const int y1 = std::min(y0 + 1, pattern.height - 1);
  const Pixel& a = pattern.at(x0, y0);
  const Pixel& b = pattern.at(x1, y0);
  const Pixel& c = pattern.at(x0, y1);
  const Pixel& d = pattern.at(x1, y1);
  return {interpolated(a.r, b.r, c.r, d.r, fx, fy), interpolated(a.g, b.g, c.g, d.g, fx, fy),
          interpolated(a.b, b.b, c.b, d.b, fx, fy), a.a};
}

Pixel adjusted(const Frame& frame, Pixel p) {
  if (frame.invert) {
    p.r = 1 - p.r;
    p.g = 1 - p.g;
    p.b = 1 - p.b;
  }
  const float luma = 0.375f * p.r + 0.5f * p.g + 0.125f * p.b;
  const double amount = static_cast<double>(frame.tintOpacity) * 0.01;
  const auto tinted = [&](float tint, float channel) {
    return static_cast<float>(amount * tint * luma + (1.0 - amount) * channel);
  };
  p.r = tinted(frame.tint.r, p.r);
  p.g = tinted(frame.tint.g, p.g);
  p.b = tinted(frame.tint.b, p.b);
  return p;
}

Pixel samplePixel(const Frame& frame, int x, int y) {
  const Position at = patternPosition(frame, x, y);
  if (frame.tile == Tile::Single && isOutside(at, frame.pattern)) return {0, 0, 0, 1};
  return adjusted(frame, readAt(frame.pattern, {fold(at.x, frame.pattern.width, frame.tile),
                                                fold(at.y, frame.pattern.height, frame.tile)}));
}

// The weighted mean along one direction as 32-bit sums give it; `tap(k)` is the pixel k steps away, null outside the
// picture. The taps at full radius weigh nothing and are left out: not even an infinite one counts.
template <typename Tap>
Pixel blurredPixel(int radius, Tap tap) {
  float r = 0, g = 0, b = 0;
  double total = 0;
  for (int k = 1 - radius; k < radius; ++k) {
    const Pixel* pixel = tap(k);
    if (pixel == nullptr) continue;
    const float ratio = static_cast<float>(k) / static_cast<float>(radius);
    const double weight = 1.0 - std::min(1.0, std::fabs(static_cast<double>(ratio)));
    r = static_cast<float>(r + weight * pixel->r);
    g = static_cast<float>(g + weight * pixel->g);
    b = static_cast<float>(b + weight * pixel->b);
    total += weight;
  }
  if (total > 0) {
    const double scale = 1.0 / total;
    r = static_cast<float>(r * scale);
    g = static_cast<float>(g * scale);
    b = static_cast<float>(b * scale);
  }
  return {r, g, b, 0};
}

// The same as exact sums give it: colours are counted in whole steps and the weights are whole numbers.
constexpr double kSteps = 134217728;  // to one

Pixel inSteps(const Pixel& p, double perUnit) {
  const auto whole = [perUnit](float channel) { return static_cast<float>(std::nearbyint(channel * perUnit)); };
  return {whole(p.r), whole(p.g), whole(p.b), p.a};
}

template <typename Tap>
Pixel exactlyBlurredPixel(int radius, Tap tap) {
  int64_t r = 0, g = 0, b = 0, total = 0;
  for (int k = 1 - radius; k < radius; ++k) {
    const Pixel* pixel = tap(k);
    if (pixel == nullptr) continue;
    const int64_t weight = radius - std::abs(k);
    r += weight * static_cast<int64_t>(pixel->r);
    g += weight * static_cast<int64_t>(pixel->g);
    b += weight * static_cast<int64_t>(pixel->b);
    total += weight;
  }
  const double scale = 1.0 / static_cast<double>(total);
  const auto mean = [scale](int64_t sum) { return static_cast<float>(static_cast<double>(sum) * scale); };
  return {mean(r), mean(g), mean(b), 0};
}

bool hasExactSums(const Picture& picture, int radius) {
  const auto small = [](float channel) { return std::fabs(channel) < 2; };
  return radius <= 1024 && std::all_of(picture.pixels.begin(), picture.pixels.end(),
                                       [&](const Pixel& p) { return small(p.r) && small(p.g) && small(p.b); });
}

// Blurs across, then down. Both means get the radius and tap(k), the pixel k steps away or null.
template <typename MeanAcross, typename MeanDown>
void blurBothWays(Picture& picture, int radius, MeanAcross meanAcross, MeanDown meanDown) {
  Picture across(picture.width, picture.height);
  for (int y = 0; y < picture.height; ++y)
    for (int x = 0; x < picture.width; ++x)
      across.at(x, y) = meanAcross(radius, [&](int k) -> const Pixel* {
        return x + k < 0 || x + k >= picture.width ? nullptr : &picture.at(x + k, y);
      });
  for (int y = 0; y < picture.height; ++y)
    for (int x = 0; x < picture.width; ++x) {
      const float alpha = picture.at(x, y).a;
      picture.at(x, y) = meanDown(radius, [&](int k) -> const Pixel* {
        return y + k < 0 || y + k >= picture.height ? nullptr : &across.at(x, y + k);
      });
      picture.at(x, y).a = alpha;
    }
}

}  // namespace

Position patternPosition(const Frame& frame, int x, int y) {
  double px = static_cast<double>(x) + frame.originX;
  double py = static_cast<double>(y) + frame.originY;
  const double dsX = frame.downsampleX;
  const double dsY = frame.downsampleY;
  if (frame.lock) {
    const LayerPlacement& layer = frame.layer;
    const double angle = layer.rotation * 3.1415927410125732 / 180.0;
    const double cosine = std::cos(-angle);
    const double sine = std::sin(-angle);
    const double dx = px - dsX * layer.positionX;
    const double dy = py - dsY * layer.positionY;
    px = (cosine * dx - sine * dy) * reciprocalPercent(layer.scaleX) + dsX * layer.anchorX;
    py = (sine * dx + cosine * dy) * reciprocalPercent(layer.scaleY) + dsY * layer.anchorY;
  }
  const double u = px - frame.offsetX;
  const double v = py - frame.offsetY;
  const double angle = -std::numbers::pi * frame.rotation / 180.0;
  const double cosine = std::cos(angle);
  const double sine = std::sin(angle);
  const double k = 100.0 / frame.scale;
  Position at{(cosine * u - sine * v) * k + frame.pattern.width / 2,
              (sine * u + cosine * v) * k + frame.pattern.height / 2};
  if (frame.patternIsFile) {
    at.x /= dsX;
    at.y /= dsY;
  }
  return at;
}

Picture sampled(const Frame& frame) {
  Picture result(std::min(frame.input.width, frame.outputWidth), std::min(frame.input.height, frame.outputHeight));
  if (frame.pattern.empty()) return result;
  for (int y = 0; y < result.height; ++y)
    for (int x = 0; x < result.width; ++x) result.at(x, y) = samplePixel(frame, x, y);
  return result;
}

void plainBlur(Picture& picture, int radius) {
  const auto mean = [](int r, auto tap) { return blurredPixel(r, tap); };
  blurBothWays(picture, radius, mean, mean);
}

void blur(Picture& picture, float amount) {
  const int radius = static_cast<int>(amount);
  if (radius < 1) return;
  if (!hasExactSums(picture, radius)) return plainBlur(picture, radius);
  for (Pixel& pixel : picture.pixels) pixel = inSteps(pixel, kSteps);
  blurBothWays(
      picture, radius, [](int r, auto tap) { return inSteps(exactlyBlurredPixel(r, tap), 1); },
      [](int r, auto tap) {
        const Pixel mean = exactlyBlurredPixel(r, tap);
        const auto colour = [](float channel) { return static_cast<float>(channel / kSteps); };
        return Pixel{colour(mean.r), colour(mean.g), colour(mean.b), 0};
      });
}

Picture render(const Frame& frame) {
  Picture pattern = sampled(frame);
  blur(pattern, frame.blur);
  Picture result(frame.outputWidth, frame.outputHeight);
  for (int y = 0; y < pattern.height; ++y)
    for (int x = 0; x < pattern.width; ++x)
      result.at(x, y) = composite(frame.blendMode, frame.opacity, frame.input.at(x, y), pattern.at(x, y));
  return result;
}

}  // namespace quiltor::reference
