#include "library/thumbnail.h"

#include "library/fifty_steps.h"

namespace quiltor {

PatternImage makeThumbnail(const PatternImage& image) {
  PatternImage thumbnail = {kThumbnailSize, kThumbnailSize, 3, {}};
  thumbnail.pixels.reserve(size_t{kThumbnailSize} * kThumbnailSize * 3);
  const auto columns = fiftySteps(image.width);
  for (const int64_t row : fiftySteps(image.height)) {
    for (const int64_t column : columns) {
      const auto source = static_cast<size_t>((column + image.width * row) * image.channels);
      for (size_t byte = source; byte < source + 3; ++byte) {
        // Of one or two channels, the last pixels have fewer than three bytes.
        thumbnail.pixels.push_back(byte < image.pixels.size() ? image.pixels[byte] : uint8_t{0});
      }
    }
  }
  return thumbnail;
}

}  // namespace quiltor
