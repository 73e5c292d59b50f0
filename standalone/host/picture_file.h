#pragma once

#include <filesystem>
#include <stdexcept>

#include "standalone/host/services/world.h"

namespace quiltor::standalone {

// A picture that cannot be read or written; what() is one line that names the file.
class PictureError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

// Reads PNG or JPEG, told apart by the first bytes. Straight alpha; pictures without alpha are opaque.
[[nodiscard]] World readPicture(const std::filesystem::path& path, WorldFormat format);

// Writes straight-alpha RGBA, 8 bits per channel for 8-bit worlds and 16 for deeper ones (float is clamped to 0..1).
// The file appears whole or not at all.
void writePng(const std::filesystem::path& path, const World& world);

}  // namespace quiltor::standalone
