#include <png.h>

#include <algorithm>
#include <csetjmp>

#include "base/checked_size.h"
#include "base/scope_guard.h"
#include "formats/image_file.h"
#include "platform/file.h"

namespace quiltor {
namespace {

enum : int32_t {
  kNotCreated = -1,
  kEmptyPicture = -2,
  kNoWriteStructure = -3,
  kNoInfoStructure = -4,
  kWriteFailed = -5
};

constexpr int kCompressionLevel = 9;

struct Encoder {
  png_structp png = nullptr;
  png_infop info = nullptr;
};

[[noreturn]] void jumpBack(png_structp png, png_const_charp) { png_longjmp(png, 1); }
void ignoreWarning(png_structp, png_const_charp) {}

// Deliberate: the product wraps at 32 bits, so a picture of 65536 by 65536 counts as empty.
bool isEmpty(const PatternImage& image) {
  return static_cast<uint32_t>(image.width) * static_cast<uint32_t>(image.height) * image.channels == 0;
}

// The rows as the file holds them. They are stepped by the record's channels: with one or two channels a row of four
// reaches into the next ones, and the last rows past the end of the array, where zeros stand in.
class Rows {
 public:
  Rows(const PatternImage& image, size_t rowBytes)
      : pixels_(image.pixels),
        step_(size_t{image.channels} * static_cast<size_t>(image.width)),
        rowBytes_(rowBytes),
        tail_(rowBytes) {}

  const uint8_t* at(int32_t y) {
    const size_t offset = step_ * static_cast<size_t>(y);
    const size_t left = pixels_.size() - offset;
    if (left >= rowBytes_) return pixels_.data() + offset;
    std::copy_n(pixels_.data() + offset, left, tail_.begin());
    std::fill(tail_.begin() + static_cast<std::ptrdiff_t>(left), tail_.end(), uint8_t{0});
    return tail_.data();
  }

 private:
  const std::vector<uint8_t>& pixels_;
  const size_t step_;
  const size_t rowBytes_;
  std::vector<uint8_t> tail_;
};

// The library leaves its calls with longjmp, so no object with a destructor lives in here.
bool write(const Encoder& encoder, std::FILE* file, const PatternImage& image, Rows& rows) {
  if (setjmp(png_jmpbuf(encoder.png))) return false;
  png_init_io(encoder.png, file);
  png_set_IHDR(encoder.png, encoder.info, static_cast<png_uint_32>(image.width), static_cast<png_uint_32>(image.height),
               8, image.channels == 3 ? PNG_COLOR_TYPE_RGB : PNG_COLOR_TYPE_RGB_ALPHA, PNG_INTERLACE_NONE,
               PNG_COMPRESSION_TYPE_DEFAULT, PNG_FILTER_TYPE_DEFAULT);
  png_write_info(encoder.png, encoder.info);
  png_set_compression_level(encoder.png, kCompressionLevel);
  png_set_filter(encoder.png, PNG_FILTER_TYPE_BASE, PNG_FILTER_NONE);
  for (int32_t y = 0; y < image.height; ++y) png_write_row(encoder.png, rows.at(y));
  png_write_end(encoder.png, nullptr);
  return true;
}

int32_t encode(const std::string& path, const PatternImage& image, AfterEncoderError afterError) {
  Encoder encoder;
  const ScopeGuard destroy([&] { png_destroy_write_struct(&encoder.png, &encoder.info); });
  encoder.png = png_create_write_struct(PNG_LIBPNG_VER_STRING, nullptr, jumpBack, ignoreWarning);
  if (!encoder.png) return kNoWriteStructure;
  encoder.info = png_create_info_struct(encoder.png);
  if (!encoder.info) return kNoInfoStructure;

  Rows rows(image, static_cast<size_t>(image.width) * (image.channels == 3 ? 3 : 4));
  std::FILE* const file = openFile(path, "wb");
  if (!file) return kNotCreated;
  if (!write(encoder, file, image, rows)) {
    // Deliberate: unless the caller minds, the file is left open when the library reports an error.
    if (afterError == AfterEncoderError::Close) std::fclose(file);
    return kWriteFailed;
  }
  return closeWritten(file) ? 0 : kWriteFailed;
}

}  // namespace

int32_t SavePngImage(const std::string& path, const PatternImage& image, AfterEncoderError afterError) noexcept {
  if (isEmpty(image)) return kEmptyPicture;
  if (!isWhole(image)) return kWriteFailed;
  try {
    return encode(path, image, afterError);
  } catch (...) {
    return kWriteFailed;
  }
}

}  // namespace quiltor
