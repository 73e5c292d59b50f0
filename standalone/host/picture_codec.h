#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace quiltor::standalone {

// Straight-alpha RGBA samples, rows top to bottom without padding; 16-bit samples are big-endian.
struct DecodedPicture {
  int width = 0;
  int height = 0;
  int bytesPerSample = 1;
  std::vector<unsigned char> samples;
};

[[nodiscard]] inline std::size_t rowBytes(const DecodedPicture& picture) {
  return static_cast<std::size_t>(picture.width) * 4 * static_cast<std::size_t>(picture.bytesPerSample);
}

// Beyond this a header is more likely damaged than true.
inline constexpr std::size_t kMaxPixels = std::size_t{1} << 28;
inline constexpr const char* kTooLarge = "it has more than 2^28 pixels";
// False when the picture's size is beyond the limit.
[[nodiscard]] bool makeRoom(DecodedPicture& picture);

// Each returns what is wrong, in words, or nothing.
[[nodiscard]] std::string decodePng(const std::vector<unsigned char>& bytes, DecodedPicture& picture);
[[nodiscard]] std::string decodeJpeg(const std::vector<unsigned char>& bytes, DecodedPicture& picture);
[[nodiscard]] std::string encodePng(const DecodedPicture& picture, std::vector<unsigned char>& bytes);

}  // namespace quiltor::standalone
