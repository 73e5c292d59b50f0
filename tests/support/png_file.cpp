#include "tests/support/png_file.h"

#include <png.h>

#include <stdexcept>

namespace quiltor::testing_support {

void writePng(const std::string& path, int width, int height, int channels, const std::vector<uint8_t>& pixels) {
  png_image image{};
  image.version = PNG_IMAGE_VERSION;
  image.width = static_cast<png_uint_32>(width);
  image.height = static_cast<png_uint_32>(height);
  image.format = channels == 1 ? PNG_FORMAT_GRAY : channels == 3 ? PNG_FORMAT_RGB : PNG_FORMAT_RGBA;
  if (pixels.size() != static_cast<size_t>(width) * static_cast<size_t>(height) * static_cast<size_t>(channels)) {
    throw std::runtime_error(path + ": " + std::to_string(pixels.size()) + " bytes are not the pixels of this size");
  }
  if (!png_image_write_to_file(&image, path.c_str(), 0, pixels.data(), 0, nullptr)) {
    throw std::runtime_error(path + ": " + image.message);
  }
}

std::vector<uint8_t> variedPixels(int width, int height, int channels) {
  std::vector<uint8_t> pixels;
  for (int y = 0; y < height; ++y) {
    for (int x = 0; x < width; ++x) {
      for (int channel = 0; channel < channels; ++channel) {
        pixels.push_back(static_cast<uint8_t>(20 + (x * 7 + y * 31 + channel * 53) % 200));
      }
    }
  }
  return pixels;
}

}  // namespace quiltor::testing_support
