#include "tests/render/expected_picture.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstring>
#include <limits>
#include <sstream>

namespace quiltor::render_tests {
namespace {

using reference::Picture;
using reference::Pixel;
using standalone::World;
using standalone::WorldFormat;

constexpr double kFloatTolerance = 2e-6;

template <class Channel, class ToFloat>
Picture readPicture(const World& world, ToFloat toFloat) {
  Picture picture(world.width(), world.height());
  for (int y = 0; y < world.height(); ++y) {
    const unsigned char* row = world.row(y);
    for (int x = 0; x < world.width(); ++x) {
      std::array<Channel, 4> argb;
      std::memcpy(argb.data(), row + static_cast<std::size_t>(x) * sizeof argb, sizeof argb);
      picture.at(x, y) = {toFloat(argb[1]), toFloat(argb[2]), toFloat(argb[3]), toFloat(argb[0])};
    }
  }
  return picture;
}

// The channel as it is in memory, in the depth's own steps.
std::array<double, 4> storedValues(const World& world, int x, int y) {
  const auto read = [&]<class Channel>(Channel) {
    std::array<Channel, 4> argb;
    std::memcpy(argb.data(), world.row(y) + static_cast<std::size_t>(x) * sizeof argb, sizeof argb);
    return std::array<double, 4>{static_cast<double>(argb[1]), static_cast<double>(argb[2]),
                                 static_cast<double>(argb[3]), static_cast<double>(argb[0])};
  };
  switch (world.format()) {
    case WorldFormat::Argb8:
      return read(uint8_t{});
    case WorldFormat::Argb16:
      return read(uint16_t{});
    default:
      return read(float{});
  }
}

double storedValue(WorldFormat format, float channel) {
  switch (format) {
    case WorldFormat::Argb8:
      return reference::byteFromChannel(channel);
    case WorldFormat::Argb16:
      return reference::deepFromChannel(channel);
    default:
      return static_cast<double>(channel);
  }
}

double difference(double drawn, double expected) {
  if (std::isnan(drawn) && std::isnan(expected)) return 0;
  if (drawn == expected) return 0;
  const double apart = std::fabs(drawn - expected);
  return std::isnan(apart) ? std::numeric_limits<double>::infinity() : apart;
}

double toleranceOf(WorldFormat format, double expected) {
  if (format == WorldFormat::ArgbFloat) return kFloatTolerance * std::max(1.0, std::fabs(expected));
  return 1;
}

Picture patternOf(const RenderCase& frame) {
  if (frame.source == PatternSource::Layer) return pictureOf(frame.patternLayer);
  if (frame.source == PatternSource::NoLayer) return pictureOf(frame.input);
  const FilePixels& file = frame.file;
  Picture picture(file.width, file.height);
  std::size_t at = 0;
  for (Pixel& pixel : picture.pixels) {
    const auto channel = [&](std::size_t index) { return reference::channelFromByte(file.bytes.at(at + index)); };
    pixel = {channel(0), channel(1), channel(2), file.channels == 4 ? channel(3) : 1.0f};
    at += static_cast<std::size_t>(file.channels);
  }
  return picture;
}

// High halves: a negative fraction counts down.
float wholePart(PF_Fixed value) { return static_cast<float>(value >> 16); }

float ratio(const PF_RationalScale& scale) { return static_cast<float>(scale.num) / static_cast<float>(scale.den); }

}  // namespace

Picture pictureOf(const World& world) {
  switch (world.format()) {
    case WorldFormat::Argb8:
      return readPicture<uint8_t>(world, reference::channelFromByte);
    case WorldFormat::Argb16:
      return readPicture<uint16_t>(world, reference::channelFromDeep);
    default:
      return readPicture<float>(world, [](float value) { return value; });
  }
}

reference::Frame referenceFrame(const RenderCase& f) {
  reference::Frame frame;
  frame.input = pictureOf(f.input);
  // Plain rendering has no origins.
  frame.originX = f.smart ? f.input.record().origin_x : 0;
  frame.originY = f.smart ? f.input.record().origin_y : 0;
  frame.outputWidth = f.input.width();
  frame.outputHeight = f.input.height();
  frame.patternIsFile = isFile(f.source);
  frame.pattern = patternOf(f);
  frame.lock = f.lock;
  frame.layer = {f.transform.positionX, f.transform.positionY, f.transform.scaleX, f.transform.scaleY,
                 f.transform.rotation,  f.transform.anchorX,   f.transform.anchorY};
  frame.tile = static_cast<reference::Tile>(f.tileMode - 1);
  frame.blendMode = f.blendMode - 1;
  frame.opacity = static_cast<float>(f.opacity);
  frame.scale = static_cast<float>(f.scale);
  frame.offsetX = wholePart(f.offsetX);
  frame.offsetY = wholePart(f.offsetY);
  frame.rotation = wholePart(f.rotation);
  frame.invert = f.invert;
  frame.tint = {reference::channelFromByte(f.tint.red), reference::channelFromByte(f.tint.green),
                reference::channelFromByte(f.tint.blue), 1};
  frame.tintOpacity = static_cast<float>(f.tintOpacity);
  frame.blur = static_cast<float>(f.blur);
  frame.downsampleX = ratio(f.downsampleX);
  frame.downsampleY = ratio(f.downsampleY);
  return frame;
}

Comparison compare(const World& drawn, const Picture& expected) {
  Comparison result;
  if (drawn.width() != expected.width || drawn.height() != expected.height) {
    result.firstBeyond = "the picture has another size";
    return result;
  }
  for (int y = 0; y < expected.height; ++y) {
    for (int x = 0; x < expected.width; ++x, ++result.pixels) {
      const Pixel& pixel = expected.at(x, y);
      const std::array<float, 4> channels{pixel.r, pixel.g, pixel.b, pixel.a};
      const std::array<double, 4> values = storedValues(drawn, x, y);
      for (std::size_t c = 0; c < 4; ++c) {
        const double wanted = storedValue(drawn.format(), channels[c]);
        const double apart = difference(values[c], wanted);
        const double tolerance = toleranceOf(drawn.format(), wanted);
        if (std::isfinite(apart)) result.worst = std::max(result.worst, apart);
        if (apart <= tolerance || !result.firstBeyond.empty()) continue;
        std::ostringstream text;
        text.precision(9);
        text << "pixel " << x << "," << y << " channel "
             << "rgba"[c] << ": drawn " << values[c] << ", expected " << wanted;
        result.firstBeyond = text.str();
      }
    }
  }
  return result;
}

}  // namespace quiltor::render_tests
