#pragma once

#include <cstdint>
#include <string>

#include "formats/pattern_image.h"

namespace quiltor {

// Pictures between disk and memory. 0 for success, a small negative code for a failure; nothing is thrown, printed or
// logged. No shared state: calls may run in parallel on different records.
//
// The loaders empty the record before they open the file. A failure after the header leaves width, height and channels
// set with an array that is shorter than they say, even empty: whoever samples a picture asks isWhole() first. A
// picture whose pixels would take more than kMostPixelBytes is a failed load.

// -1 when the file cannot be opened, for any error of the decoder and for a progressive picture of more scans than any
// encoder makes, which would be decoded for hours. The array holds the decoder's own colour space:
// RGB, CMYK as four channels, or grey (see PatternImage). A file that ends too early is no error to the decoder: what
// is missing is grey.
[[nodiscard]] int32_t LoadJpegImage(const std::string& path, PatternImage& image) noexcept;

// Always four channels of 8 bits. -1 when the file cannot be opened, -2 and -3 when the decoder cannot be set up, -4
// for any error of the decoder.
[[nodiscard]] int32_t LoadPngImage(const std::string& path, PatternImage& image) noexcept;

// What becomes of the file that an error of the encoder leaves half-written.
enum class AfterEncoderError { LeaveOpen, Close };

// Three channels become an RGB file, any other number an RGBA file. -1 when the file cannot be created, -2 for an empty
// picture, -3 and -4 when the encoder cannot be set up, -5 for any error of the encoder and for an array that is
// shorter than width, height and channels say.
[[nodiscard]] int32_t SavePngImage(const std::string& path, const PatternImage& image,
                                   AfterEncoderError afterError = AfterEncoderError::LeaveOpen) noexcept;

}  // namespace quiltor
