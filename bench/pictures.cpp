#include "bench/pictures.h"

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <numbers>

namespace quiltor::bench {
namespace {

using standalone::World;
using standalone::WorldFormat;

// Below 1, with neither a direction nor a period that shows.
double grain(int x, int y) {
  uint32_t bits = static_cast<uint32_t>(x) * 2654435761U ^ (static_cast<uint32_t>(y) + 7) * 2246822519U;
  bits = (bits ^ bits >> 15) * 3266489917U;
  return (bits >> 16 & 255) / 256.0;
}

double wave(double place, double length) { return 0.5 + 0.5 * std::sin(2 * std::numbers::pi * place / length); }

}  // namespace

World layerPicture(WorldFormat format, int width, int height) {
  World world(format, width, height);
  for (int y = 0; y < height; ++y) {
    for (int x = 0; x < width; ++x) {
      const double far = wave(x + 0.6 * y, 1300), near = wave(x - 1.7 * y, 170), fine = 0.05 * grain(x, y);
      world.set(x, y,
                {0.1 + 0.6 * far + 0.25 * near + fine, 0.15 + 0.5 * far * near + fine, 0.9 - 0.7 * far + fine, 1});
    }
  }
  return world;
}

World patternPicture(WorldFormat format) {
  World world(format, kPatternSide, kPatternSide);
  for (int y = 0; y < kPatternSide; ++y) {
    for (int x = 0; x < kPatternSide; ++x) {
      const double waves = wave(x + 20 * wave(y, kPatternSide), kPatternSide / 4.0);
      const double check = (x / 32 + y / 32) % 2 == 0 ? 0.3 : 0.8, fine = 0.1 * grain(x, y);
      world.set(x, y, {0.2 + 0.6 * waves + fine, check + fine, 0.2 + 0.4 * waves + 0.3 * check + fine, 1});
    }
  }
  return world;
}

World repeated(const World& picture, int times) {
  World world(picture.format(), picture.width() * times, picture.height() * times);
  const std::size_t bytes =
      static_cast<std::size_t>(picture.width()) * static_cast<std::size_t>(bytesPerPixel(picture.format()));
  for (int y = 0; y < world.height(); ++y) {
    for (std::size_t i = 0; i < static_cast<std::size_t>(times); ++i) {
      std::memcpy(world.row(y) + i * bytes, picture.row(y % picture.height()), bytes);
    }
  }
  return world;
}

}  // namespace quiltor::bench
