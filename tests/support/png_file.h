#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace quiltor::testing_support {

// Writes an 8-bit PNG of known pixels: rows top to bottom, channels (1, 3 or 4) interleaved as grey or R, G, B[, A].
// Throws std::runtime_error when the file cannot be written or the pixels are not width * height * channels.
void writePng(const std::string& path, int width, int height, int channels, const std::vector<uint8_t>& pixels);

// Pixels for writePng, no two neighbours alike and none like the placeholder's black and white squares.
std::vector<uint8_t> variedPixels(int width, int height, int channels);

}  // namespace quiltor::testing_support
