#include "tests/render/random_case.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <limits>
#include <string>

#include "tests/reference/render.h"
#include "tests/render/expected_picture.h"

namespace quiltor::render_tests {
namespace {

using standalone::World;
using standalone::WorldFormat;

// A generator of our own, so that the same number means the same frame with every standard library.
class Dice {
 public:
  explicit Dice(uint32_t number) : state_(0x9E3779B97F4A7C15u * (number + 1)) {}

  int whole(int least, int most) {
    const uint64_t values = static_cast<uint64_t>(int64_t{most} - least + 1);
    return static_cast<int>(least + static_cast<int64_t>(next() % values));
  }
  double real(double least, double most) {
    return least + (most - least) * static_cast<double>(next() >> 11) * 0x1p-53;
  }
  bool oneIn(int n) { return whole(1, n) == 1; }
  uint8_t byte() { return static_cast<uint8_t>(next() >> 56); }

 private:
  uint64_t next() {
    uint64_t z = (state_ += 0x9E3779B97F4A7C15u);
    z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9u;
    z = (z ^ (z >> 27)) * 0x94D049BB133111EBu;
    return z ^ (z >> 31);
  }
  uint64_t state_;
};

// Ends, middle and everything between: the modes decide at 0, a half and 1.
uint8_t randomByte(Dice& dice) {
  switch (dice.whole(0, 9)) {
    case 0:
      return 0;
    case 1:
      return 255;
    case 2:
      return static_cast<uint8_t>(dice.whole(127, 128));
    default:
      return dice.byte();
  }
}

uint16_t randomDeep(Dice& dice) {
  switch (dice.whole(0, 9)) {
    case 0:
      return 0;
    case 1:
      return 32768;
    case 2:
      return 16384;
    default:
      return static_cast<uint16_t>(dice.whole(0, 32768));
  }
}

float randomFloat(Dice& dice) {
  switch (dice.whole(0, 9)) {
    case 0:
      return 0;
    case 1:
      return 1;
    case 2:
      return 0.5f;
    case 3:
      return static_cast<float>(dice.real(-0.5, 4));
    default:
      return static_cast<float>(dice.real(0, 1));
  }
}

template <class Channel, class Value>
void fillRandomly(World& world, Value value) {
  for (int y = 0; y < world.height(); ++y) {
    unsigned char* row = world.row(y);
    for (int i = 0; i < world.width() * 4; ++i) {
      const Channel channel = value();
      std::memcpy(row + static_cast<std::size_t>(i) * sizeof channel, &channel, sizeof channel);
    }
  }
}

int randomSide(Dice& dice, int most) { return dice.oneIn(6) ? dice.whole(1, 3) : dice.whole(1, most); }

struct Size {
  int width, height;
};

// What a float layer may hold besides colours.
float wildFloat(Dice& dice) {
  constexpr float kWild[] = {std::numeric_limits<float>::quiet_NaN(),
                             std::numeric_limits<float>::infinity(),
                             -std::numeric_limits<float>::infinity(),
                             3e38f,
                             -3e38f,
                             1e-40f,
                             -0.0f,
                             1e6f,
                             -1e6f};
  return dice.oneIn(12) ? kWild[dice.whole(0, 8)] : randomFloat(dice);
}

// One statement for every number wherever the order counts: compilers evaluate arguments in different orders.
World randomWorld(Dice& dice, WorldFormat format, Size most, bool wild) {
  const int width = randomSide(dice, most.width);
  const int height = randomSide(dice, most.height);
  World world(format, width, height);
  switch (format) {
    case WorldFormat::Argb8:
      fillRandomly<uint8_t>(world, [&] { return randomByte(dice); });
      break;
    case WorldFormat::Argb16:
      fillRandomly<uint16_t>(world, [&] { return randomDeep(dice); });
      break;
    default:
      fillRandomly<float>(world, [&] { return wild ? wildFloat(dice) : randomFloat(dice); });
      break;
  }
  return world;
}

FilePixels placeholder() {
  FilePixels pixels{50, 50, 3, {}};
  for (int y = 0; y < 50; ++y)
    for (int x = 0; x < 50; ++x) pixels.bytes.insert(pixels.bytes.end(), 3, (x < 25) == (y < 25) ? 255 : 0);
  return pixels;
}

FilePixels randomFile(Dice& dice, PatternSource source) {
  if (source == PatternSource::Placeholder) return placeholder();
  if (source == PatternSource::MissingFile) return {0, 0, 0, {}};
  FilePixels pixels{dice.whole(1, 40), dice.whole(1, 40), source == PatternSource::PngRgba ? 4 : 3, {}};
  const int count = pixels.width * pixels.height * pixels.channels;
  for (int i = 0; i < count; ++i) pixels.bytes.push_back(randomByte(dice));
  return pixels;
}

void setRandomOrigin(Dice& dice, World& world) {
  const int x = dice.whole(-60, 60);
  const int y = dice.whole(-60, 60);
  world.setOrigin(x, y);
}

PatternSource randomSource(Dice& dice) {
  const int i = dice.whole(0, 19);
  if (i < 8) return PatternSource::Layer;
  if (i < 9) return PatternSource::NoLayer;
  if (i < 12) return PatternSource::PngRgb;
  if (i < 16) return PatternSource::PngRgba;
  if (i < 18) return PatternSource::Jpeg;
  return i == 18 ? PatternSource::Placeholder : PatternSource::MissingFile;
}

double randomScale(Dice& dice) {
  if (dice.oneIn(4)) return 100;
  return dice.oneIn(4) ? dice.whole(1, 9) : dice.real(1, 500);
}

PF_Fixed randomOffset(Dice& dice) {
  if (dice.oneIn(12)) return dice.whole(-32768 * 65536, 32767 * 65536);
  return dice.whole(fixed(-90), fixed(120));
}

PF_RationalScale randomDownsample(Dice& dice) {
  if (dice.oneIn(2)) return {1, 1};
  return {1, static_cast<A_u_long>(dice.whole(2, 8))};
}

standalone::LayerTransform randomTransform(Dice& dice) {
  const double reach = dice.oneIn(8) ? 4000 : 100;
  return {.positionX = dice.real(-reach, reach),
          .positionY = dice.real(-reach, reach),
          .anchorX = dice.real(-reach, reach),
          .anchorY = dice.real(-reach, reach),
          .scaleX = dice.oneIn(4) ? 100 : dice.real(-300, 300),
          .scaleY = dice.oneIn(4) ? 100 : dice.real(-300, 300),
          .rotation = dice.oneIn(4) ? 0 : dice.real(-720, 720)};
}

// Folding by repeated addition is the plain renderer's only slow step: how many additions the frame takes at most.
double foldingTurns(const RenderCase& f) {
  const reference::Frame frame = referenceFrame(f);
  if (frame.tile != reference::Tile::Tiled || frame.pattern.empty()) return 0;
  double farthest = 0;
  for (const int x : {0, frame.outputWidth - 1}) {
    for (const int y : {0, frame.outputHeight - 1}) {
      const reference::Position at = reference::patternPosition(frame, x, y);
      farthest = std::max({farthest, std::fabs(at.x) / frame.pattern.width, std::fabs(at.y) / frame.pattern.height});
    }
  }
  return 2 * farthest * frame.outputWidth * frame.outputHeight;
}

void shrinkUntilQuick(RenderCase& f) {
  constexpr double kEnoughTurns = 3e7;
  while (foldingTurns(f) > kEnoughTurns) {
    if (f.input.width() == 1 && f.input.height() == 1) {
      f.tileMode = 3;
      return;
    }
    const PF_LRect area = f.input.bounds();
    f.input = f.input.cropped(
        {area.left, area.top, area.left + (f.input.width() + 1) / 2, area.top + (f.input.height() + 1) / 2});
  }
}

}  // namespace

RenderCase randomCase(uint32_t number) {
  Dice dice(number);
  RenderCase f;
  f.name = "random frame " + std::to_string(number);
  constexpr WorldFormat kDepths[] = {WorldFormat::Argb8, WorldFormat::Argb16, WorldFormat::ArgbFloat};
  const WorldFormat depth = kDepths[dice.whole(0, 2)];
  // Every depth may come either way; floats only count in full by smart rendering in a host that keeps the rules.
  f.smart = depth == WorldFormat::ArgbFloat || dice.oneIn(2);
  const bool large = dice.oneIn(100);
  const bool wild = dice.oneIn(8);
  f.input = randomWorld(dice, depth, large ? Size{300, 200} : Size{70, 50}, wild);
  if (f.smart && dice.oneIn(2)) setRandomOrigin(dice, f.input);

  f.source = randomSource(dice);
  if (f.source == PatternSource::Layer) f.patternLayer = randomWorld(dice, depth, {40, 40}, wild);
  if (isFile(f.source)) f.file = randomFile(dice, f.source);

  f.lock = dice.oneIn(3);
  f.transform = randomTransform(dice);
  f.tileMode = dice.whole(1, 3);
  f.blendMode = dice.whole(1, 27);
  f.opacity = dice.oneIn(2) ? 100 : dice.oneIn(8) ? 0 : dice.real(0, 100);
  f.scale = randomScale(dice);
  f.offsetX = randomOffset(dice);
  f.offsetY = randomOffset(dice);
  f.rotation = dice.oneIn(3) ? 0 : dice.whole(fixed(-1080), fixed(1080));
  f.invert = dice.oneIn(3);
  f.tint = {255, randomByte(dice), randomByte(dice), randomByte(dice)};
  f.tintOpacity = dice.oneIn(2) ? 0 : dice.oneIn(4) ? 100 : dice.real(0, 100);
  f.blur = dice.oneIn(2) ? 0 : dice.oneIn(4) ? dice.real(0, 100) : dice.real(0, 8);
  f.downsampleX = randomDownsample(dice);
  f.downsampleY = randomDownsample(dice);
  shrinkUntilQuick(f);
  return f;
}

}  // namespace quiltor::render_tests
