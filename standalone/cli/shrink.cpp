#include "standalone/cli/shrink.h"

#include <algorithm>

namespace quiltor::standalone {
namespace {

Rgba meanOf(const World& picture, int left, int top, int right, int bottom) {
  Rgba sum;
  for (int y = top; y < bottom; ++y) {
    for (int x = left; x < right; ++x) {
      const Rgba pixel = picture.at(x, y);
      sum.r += pixel.r * pixel.a;
      sum.g += pixel.g * pixel.a;
      sum.b += pixel.b * pixel.a;
      sum.a += pixel.a;
    }
  }
  if (sum.a <= 0) return {};
  const double count = static_cast<double>(right - left) * (bottom - top);
  return {sum.r / sum.a, sum.g / sum.a, sum.b / sum.a, sum.a / count};
}

}  // namespace

World shrink(const World& picture, int n) {
  if (n == 1) return picture;
  World small(picture.format(), (picture.width() + n - 1) / n, (picture.height() + n - 1) / n);
  for (int y = 0; y < small.height(); ++y) {
    for (int x = 0; x < small.width(); ++x) {
      small.set(x, y,
                meanOf(picture, x * n, y * n, std::min((x + 1) * n, picture.width()),
                       std::min((y + 1) * n, picture.height())));
    }
  }
  return small;
}

}  // namespace quiltor::standalone
