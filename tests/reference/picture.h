#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace quiltor::reference {

// Straight colour, 1 = white and opaque.
struct Pixel {
  float r = 0, g = 0, b = 0, a = 0;
};

struct Picture {
  int width = 0;
  int height = 0;
  std::vector<Pixel> pixels;  // rows top to bottom

  Picture() = default;
  Picture(int w, int h) : width(w), height(h), pixels(static_cast<std::size_t>(w) * static_cast<std::size_t>(h)) {}

  [[nodiscard]] bool empty() const { return width <= 0 || height <= 0; }
  Pixel& at(int x, int y) { return pixels[index(x, y)]; }
  [[nodiscard]] const Pixel& at(int x, int y) const { return pixels[index(x, y)]; }

 private:
  [[nodiscard]] std::size_t index(int x, int y) const {
    return static_cast<std::size_t>(y) * static_cast<std::size_t>(width) + static_cast<std::size_t>(x);
  }
};

// Channels as the effect reads them.
float channelFromByte(uint8_t value);   // 255 is exactly 1
float channelFromDeep(uint16_t value);  // 32768 is exactly 1

// Channels as the effect writes them: limited to 0..1, rounded half up, not-a-number is 0.
uint8_t byteFromChannel(float value);
uint16_t deepFromChannel(float value);

}  // namespace quiltor::reference
