#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "hostapi/pixels.h"
#include "standalone/host/services/cache_line_memory.h"

namespace quiltor::standalone {

enum class WorldFormat { Argb8, Argb16, ArgbFloat, Bgra8, BgraFloat };

[[nodiscard]] int bytesPerPixel(WorldFormat format);
[[nodiscard]] bool isVideoEditorFormat(WorldFormat format);
[[nodiscard]] PF_PixelFormat pixelFormatCode(WorldFormat format);       // what the world suite answers
[[nodiscard]] PrPixelFormat videoEditorFormatCode(WorldFormat format);  // what the pixel format suite answers

// Every record that the host hands out names its format in a word reserved for the host, which copies of the record
// keep.
inline constexpr A_long kFormatStamp = 0x51570000;
// Nothing for a record that did not come from the host.
[[nodiscard]] std::optional<WorldFormat> formatOf(const PF_EffectWorld& record);

// One pixel, straight alpha, 1 = white and opaque whatever the world's format.
struct Rgba {
  double r = 0, g = 0, b = 0, a = 0;
};

// How rows lie in memory. Padding bytes follow every row; bottom-up worlds have negative row bytes.
struct RowLayout {
  int paddingBytes = 0;
  bool bottomUp = false;
};

// Pixels of ours with the host's record over them. Rows of guard bytes lie before and after the pixels, and the
// padding of every row is guarded too. Copying copies the pixels into new memory; what was moved from has none and the
// size 0.
class World {
 public:
  // Fresh pixels hold a pattern, not zero. Sizes of 0 are legal: such a world has no data.
  World(WorldFormat format, int width, int height, RowLayout rows = {});
  World(const World& other);
  World(World&& other) noexcept;
  World& operator=(World other) noexcept;

  [[nodiscard]] WorldFormat format() const { return format_; }
  [[nodiscard]] int width() const { return record_.width; }
  [[nodiscard]] int height() const { return record_.height; }

  // The record to give to an effect. Its address is stable as long as the world is not moved or assigned.
  [[nodiscard]] PF_EffectWorld& record() { return record_; }
  [[nodiscard]] const PF_EffectWorld& record() const { return record_; }

  // Layer coordinates of pixel (0, 0); both 0 unless set.
  void setOrigin(int x, int y);

  void fill(const Rgba& color);
  void clear();  // every channel 0
  // Values are rounded to the format's steps; 8 and 16 bits are clamped, float is not.
  void set(int x, int y, const Rgba& color);
  [[nodiscard]] Rgba at(int x, int y) const;
  // Row y of a world of 8 bits from and to R, G, B, A, 8 bits each, which set and at would round to the same.
  void setRow8(int y, const unsigned char* rgba);
  void copyRow8(int y, unsigned char* rgba) const;
  // First byte of row y.
  [[nodiscard]] unsigned char* row(int y);
  [[nodiscard]] const unsigned char* row(int y) const;
  // The pixels without padding, top row first, in the format's own bytes.
  [[nodiscard]] std::vector<unsigned char> packed() const;

  // The same pixels in another format or another row layout.
  [[nodiscard]] World converted(WorldFormat format, RowLayout rows = {}) const;
  // The part inside `area` (layer coordinates), its origin at the left-top of what it holds.
  [[nodiscard]] World cropped(const PF_LRect& area, RowLayout rows = {}) const;
  // The rectangle that the world covers in layer coordinates.
  [[nodiscard]] PF_LRect bounds() const;

  // Where a guard byte was written, in words; empty when all are whole.
  [[nodiscard]] std::optional<std::string> damage() const;

 private:
  WorldFormat format_;
  RowLayout rows_;
  CacheLineMemory memory_;
  PF_EffectWorld record_{};

  void layOut(int width, int height);
};

}  // namespace quiltor::standalone
