#include "standalone/host/services/world.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <stdexcept>
#include <utility>

namespace quiltor::standalone {
namespace {

constexpr int kGuardRows = 2;
constexpr unsigned char kFresh = 0xCD;

unsigned char guardByte(std::size_t index) { return static_cast<unsigned char>(0x5A ^ (index * 37)); }

// Which of a pixel's four channels holds red, green, blue and alpha.
struct ChannelOrder {
  int r, g, b, a;
};

ChannelOrder channelOrder(WorldFormat format) {
  return isVideoEditorFormat(format) ? ChannelOrder{2, 1, 0, 3} : ChannelOrder{1, 2, 3, 0};
}

template <class Channel>
Channel quantised(double value, double maximum) {
  // The comparison sends not-a-number to 0.
  const double clamped = value > 0 ? std::min(value, 1.0) : 0.0;
  return static_cast<Channel>(std::lround(clamped * maximum));
}

template <class Channel, class FromDouble>
void store(unsigned char* pixel, const ChannelOrder& order, const Rgba& color, FromDouble fromDouble) {
  Channel channels[4];
  channels[order.r] = fromDouble(color.r);
  channels[order.g] = fromDouble(color.g);
  channels[order.b] = fromDouble(color.b);
  channels[order.a] = fromDouble(color.a);
  std::memcpy(pixel, channels, sizeof channels);
}

template <class Channel>
Rgba load(const unsigned char* pixel, const ChannelOrder& order, double maximum) {
  Channel channels[4];
  std::memcpy(channels, pixel, sizeof channels);
  const auto value = [&](int channel) { return static_cast<double>(channels[channel]) / maximum; };
  return {value(order.r), value(order.g), value(order.b), value(order.a)};
}

void storePixel(WorldFormat format, unsigned char* pixel, const Rgba& color) {
  const ChannelOrder order = channelOrder(format);
  switch (format) {
    case WorldFormat::Argb8:
    case WorldFormat::Bgra8:
      store<A_u_char>(pixel, order, color, [](double v) { return quantised<A_u_char>(v, PF_MAX_CHAN8); });
      return;
    case WorldFormat::Argb16:
      store<A_u_short>(pixel, order, color, [](double v) { return quantised<A_u_short>(v, PF_MAX_CHAN16); });
      return;
    case WorldFormat::ArgbFloat:
    case WorldFormat::BgraFloat:
      store<float>(pixel, order, color, [](double v) { return static_cast<float>(v); });
      return;
  }
}

Rgba loadPixel(WorldFormat format, const unsigned char* pixel) {
  const ChannelOrder order = channelOrder(format);
  switch (format) {
    case WorldFormat::Argb8:
    case WorldFormat::Bgra8:
      return load<A_u_char>(pixel, order, PF_MAX_CHAN8);
    case WorldFormat::Argb16:
      return load<A_u_short>(pixel, order, PF_MAX_CHAN16);
    case WorldFormat::ArgbFloat:
    case WorldFormat::BgraFloat:
      break;
  }
  return load<float>(pixel, order, 1);
}

}  // namespace

int bytesPerPixel(WorldFormat format) {
  switch (format) {
    case WorldFormat::Argb8:
    case WorldFormat::Bgra8:
      return 4;
    case WorldFormat::Argb16:
      return 8;
    case WorldFormat::ArgbFloat:
    case WorldFormat::BgraFloat:
      break;
  }
  return 16;
}

bool isVideoEditorFormat(WorldFormat format) {
  return format == WorldFormat::Bgra8 || format == WorldFormat::BgraFloat;
}

PF_PixelFormat pixelFormatCode(WorldFormat format) {
  switch (format) {
    case WorldFormat::Argb8:
      return PF_PixelFormat_ARGB32;
    case WorldFormat::Argb16:
      return PF_PixelFormat_ARGB64;
    case WorldFormat::ArgbFloat:
      return PF_PixelFormat_ARGB128;
    case WorldFormat::Bgra8:
    case WorldFormat::BgraFloat:
      break;
  }
  return PF_PixelFormat_INVALID;
}

PrPixelFormat videoEditorFormatCode(WorldFormat format) {
  switch (format) {
    case WorldFormat::Bgra8:
      return PrPixelFormat_BGRA_4444_8u;
    case WorldFormat::BgraFloat:
      return PrPixelFormat_BGRA_4444_32f;
    case WorldFormat::Argb8:
    case WorldFormat::Argb16:
    case WorldFormat::ArgbFloat:
      break;
  }
  return PF_PixelFormat_INVALID;
}

std::optional<WorldFormat> formatOf(const PF_EffectWorld& record) {
  constexpr int kFormats = static_cast<int>(WorldFormat::BgraFloat) + 1;
  const A_long number = record.reserved_long1 - kFormatStamp;
  if (number < 0 || number >= kFormats) return std::nullopt;
  return static_cast<WorldFormat>(number);
}

World::World(WorldFormat format, int width, int height, RowLayout rows) : format_(format), rows_(rows) {
  if (width < 0 || height < 0 || rows.paddingBytes < 0) throw std::invalid_argument("a world of negative size");
  layOut(width, height);
}

World::World(const World& other) : World(other.format_, other.width(), other.height(), other.rows_) {
  setOrigin(other.record_.origin_x, other.record_.origin_y);
  const std::size_t bytes = static_cast<std::size_t>(width()) * static_cast<std::size_t>(bytesPerPixel(format_));
  for (int y = 0; y < height() && bytes > 0; ++y) std::memcpy(row(y), other.row(y), bytes);
}

World::World(World&& other) noexcept
    : format_(other.format_),
      rows_(other.rows_),
      memory_(std::move(other.memory_)),
      record_(std::exchange(other.record_, {})) {}

World& World::operator=(World other) noexcept {
  std::swap(format_, other.format_);
  std::swap(rows_, other.rows_);
  std::swap(memory_, other.memory_);
  std::swap(record_, other.record_);
  return *this;
}

void World::layOut(int width, int height) {
  record_ = {};
  record_.world_flags = PF_WorldFlag_WRITEABLE | (format_ == WorldFormat::Argb16 ? PF_WorldFlag_DEEP : 0);
  record_.width = width;
  record_.height = height;
  record_.extent_hint = {0, 0, width, height};
  record_.pix_aspect_ratio = {1, 1};
  record_.reserved_long1 = kFormatStamp + static_cast<A_long>(format_);
  if (width == 0 || height == 0) return;

  const std::size_t pixels = static_cast<std::size_t>(width) * static_cast<std::size_t>(bytesPerPixel(format_));
  const std::size_t stride = pixels + static_cast<std::size_t>(rows_.paddingBytes);
  const std::size_t rows = static_cast<std::size_t>(height);
  if (stride > 0x7FFFFFFF) throw std::invalid_argument("a world whose rows are too long");
  memory_.resize(stride * (rows + 2 * kGuardRows), kFresh);
  const auto guard = [this](std::size_t from, std::size_t to) {
    for (std::size_t i = from; i < to; ++i) memory_[i] = guardByte(i);
  };
  guard(0, kGuardRows * stride);
  for (std::size_t y = kGuardRows; y < kGuardRows + rows; ++y) guard(y * stride + pixels, (y + 1) * stride);
  guard((kGuardRows + rows) * stride, memory_.size());

  const std::size_t first = rows_.bottomUp ? kGuardRows + rows - 1 : kGuardRows;
  record_.data = reinterpret_cast<PF_PixelPtr>(memory_.data() + first * stride);
  record_.rowbytes = rows_.bottomUp ? -static_cast<A_long>(stride) : static_cast<A_long>(stride);
}

void World::setOrigin(int x, int y) {
  record_.origin_x = x;
  record_.origin_y = y;
}

unsigned char* World::row(int y) {
  return reinterpret_cast<unsigned char*>(record_.data) + static_cast<std::ptrdiff_t>(y) * record_.rowbytes;
}

const unsigned char* World::row(int y) const {
  return reinterpret_cast<const unsigned char*>(record_.data) + static_cast<std::ptrdiff_t>(y) * record_.rowbytes;
}

void World::set(int x, int y, const Rgba& color) {
  storePixel(format_, row(y) + static_cast<std::ptrdiff_t>(x) * bytesPerPixel(format_), color);
}

Rgba World::at(int x, int y) const {
  return loadPixel(format_, row(y) + static_cast<std::ptrdiff_t>(x) * bytesPerPixel(format_));
}

void World::setRow8(int y, const unsigned char* rgba) {
  const ChannelOrder order = channelOrder(format_);
  unsigned char* pixel = row(y);
  for (int x = 0; x < width(); ++x, pixel += 4, rgba += 4) {
    pixel[order.r] = rgba[0];
    pixel[order.g] = rgba[1];
    pixel[order.b] = rgba[2];
    pixel[order.a] = rgba[3];
  }
}

void World::copyRow8(int y, unsigned char* rgba) const {
  const ChannelOrder order = channelOrder(format_);
  const unsigned char* pixel = row(y);
  for (int x = 0; x < width(); ++x, pixel += 4, rgba += 4) {
    rgba[0] = pixel[order.r];
    rgba[1] = pixel[order.g];
    rgba[2] = pixel[order.b];
    rgba[3] = pixel[order.a];
  }
}

void World::fill(const Rgba& color) {
  for (int y = 0; y < height(); ++y) {
    for (int x = 0; x < width(); ++x) set(x, y, color);
  }
}

void World::clear() { fill({}); }

std::vector<unsigned char> World::packed() const {
  const std::size_t bytes = static_cast<std::size_t>(width()) * static_cast<std::size_t>(bytesPerPixel(format_));
  std::vector<unsigned char> all;
  if (memory_.empty()) return all;
  all.reserve(bytes * static_cast<std::size_t>(height()));
  for (int y = 0; y < height(); ++y) all.insert(all.end(), row(y), row(y) + bytes);
  return all;
}

World World::converted(WorldFormat format, RowLayout rows) const {
  World result(format, width(), height(), rows);
  result.setOrigin(record_.origin_x, record_.origin_y);
  if (memory_.empty()) return result;
  const std::size_t bytes = static_cast<std::size_t>(width()) * static_cast<std::size_t>(bytesPerPixel(format_));
  for (int y = 0; y < height(); ++y) {
    if (format == format_) {
      std::memcpy(result.row(y), row(y), bytes);
    } else {
      for (int x = 0; x < width(); ++x) result.set(x, y, at(x, y));
    }
  }
  return result;
}

World World::cropped(const PF_LRect& area, RowLayout rows) const {
  const PF_LRect own = bounds();
  const int left = std::max(area.left, own.left);
  const int top = std::max(area.top, own.top);
  const int right = std::max(left, std::min(area.right, own.right));
  const int bottom = std::max(top, std::min(area.bottom, own.bottom));
  World result(format_, right - left, bottom - top, rows);
  result.setOrigin(left, top);
  if (result.memory_.empty()) return result;
  const std::size_t bytes = static_cast<std::size_t>(right - left) * static_cast<std::size_t>(bytesPerPixel(format_));
  const std::ptrdiff_t skipped = static_cast<std::ptrdiff_t>(left - own.left) * bytesPerPixel(format_);
  for (int y = top; y < bottom; ++y) std::memcpy(result.row(y - top), row(y - own.top) + skipped, bytes);
  return result;
}

PF_LRect World::bounds() const {
  return {record_.origin_x, record_.origin_y, record_.origin_x + width(), record_.origin_y + height()};
}

std::optional<std::string> World::damage() const {
  if (memory_.empty()) return std::nullopt;
  const std::size_t pixels = static_cast<std::size_t>(width()) * static_cast<std::size_t>(bytesPerPixel(format_));
  const std::size_t stride = pixels + static_cast<std::size_t>(rows_.paddingBytes);
  const std::size_t lines = memory_.size() / stride;
  for (std::size_t line = 0; line < lines; ++line) {
    const bool holdsPixels = line >= kGuardRows && line < lines - kGuardRows;
    for (std::size_t i = holdsPixels ? pixels : 0; i < stride; ++i) {
      if (memory_[line * stride + i] == guardByte(line * stride + i)) continue;
      const std::string column = ", byte " + std::to_string(i) + " of " + std::to_string(pixels);
      const int y = static_cast<int>(line) - kGuardRows;
      const int shown = rows_.bottomUp ? height() - 1 - y : y;
      return "row " + std::to_string(shown) + " of " + std::to_string(height()) + column;
    }
  }
  return std::nullopt;
}

}  // namespace quiltor::standalone
