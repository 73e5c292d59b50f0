#include <png.h>

#include <csetjmp>

#include "base/checked_size.h"
#include "base/scope_guard.h"
#include "formats/image_file.h"
#include "formats/picture_limit.h"
#include "platform/file.h"

namespace quiltor {
namespace {

enum : int32_t { kNotOpened = -1, kNoReadStructure = -2, kNoInfoStructure = -3, kReadFailed = -4 };

enum class Outcome { Done, LibraryError, TooLarge };

struct Decoder {
  png_structp png = nullptr;
  png_infop info = nullptr;
};

[[noreturn]] void jumpBack(png_structp png, png_const_charp) { png_longjmp(png, 1); }
void ignoreWarning(png_structp, png_const_charp) {}

// The library leaves its calls with longjmp, so no object with a destructor lives in the functions below that take one
// as their target; their buffers belong to the caller.

void expandToRgba8(const Decoder& decoder) {
  const int bitDepth = png_get_bit_depth(decoder.png, decoder.info);
  const int colour = png_get_color_type(decoder.png, decoder.info);
  if (bitDepth == 16) png_set_strip_16(decoder.png);
  if (colour == PNG_COLOR_TYPE_PALETTE) png_set_palette_to_rgb(decoder.png);
  if (colour == PNG_COLOR_TYPE_GRAY && bitDepth < 8) png_set_expand_gray_1_2_4_to_8(decoder.png);
  if (png_get_valid(decoder.png, decoder.info, PNG_INFO_tRNS)) png_set_tRNS_to_alpha(decoder.png);
  if (!(colour & PNG_COLOR_MASK_ALPHA)) png_set_filler(decoder.png, 255, PNG_FILLER_AFTER);
  if (!(colour & PNG_COLOR_MASK_COLOR)) png_set_gray_to_rgb(decoder.png);
}

bool readHeader(const Decoder& decoder, std::FILE* file, PatternImage& image) {
  if (setjmp(png_jmpbuf(decoder.png))) return false;
  png_init_io(decoder.png, file);
  png_read_info(decoder.png, decoder.info);
  image.width = static_cast<int32_t>(png_get_image_width(decoder.png, decoder.info));
  image.height = static_cast<int32_t>(png_get_image_height(decoder.png, decoder.info));
  image.channels = 3;
  expandToRgba8(decoder);
  image.channels = 4;
  return true;
}

// From here on png_get_rowbytes speaks of the expanded rows.
bool startRows(const Decoder& decoder) {
  if (setjmp(png_jmpbuf(decoder.png))) return false;
  png_set_interlace_handling(decoder.png);
  png_read_update_info(decoder.png, decoder.info);
  return true;
}

bool readRows(const Decoder& decoder, png_bytepp rows) {
  if (setjmp(png_jmpbuf(decoder.png))) return false;
  png_read_image(decoder.png, rows);
  return true;
}

// A file cannot hold more than about a thousand times its size, the best ratio of its compression: a header that
// promises more is damaged, and the memory for its picture is not asked for.
bool canHoldPicture(const Decoder& decoder, std::FILE* file) {
  constexpr int64_t kBestRatio = 1032;
  const auto packed = checkedProduct({static_cast<int64_t>(png_get_rowbytes(decoder.png, decoder.info)),
                                      png_get_image_height(decoder.png, decoder.info)});
  const int64_t size = fileSize(file);
  return packed && (size == 0 || *packed / kBestRatio <= size);
}

Outcome decode(const Decoder& decoder, std::FILE* file, PatternImage& image) {
  if (!readHeader(decoder, file, image)) return Outcome::LibraryError;
  if (!canHoldPicture(decoder, file)) return Outcome::TooLarge;
  if (!startRows(decoder)) return Outcome::LibraryError;
  const size_t rowBytes = png_get_rowbytes(decoder.png, decoder.info);
  const auto height = static_cast<size_t>(image.height);
  const auto size = checkedProduct({static_cast<int64_t>(rowBytes), image.height});
  if (!size || *size > kMostPixelBytes) return Outcome::TooLarge;
  std::vector<uint8_t> pixels(static_cast<size_t>(*size));
  std::vector<png_bytep> rows(height);
  for (size_t y = 0; y < height; ++y) rows[y] = pixels.data() + y * rowBytes;
  if (!readRows(decoder, rows.data())) return Outcome::LibraryError;
  image.pixels.swap(pixels);
  return Outcome::Done;
}

Outcome decodeWithinMemory(const Decoder& decoder, std::FILE* file, PatternImage& image) noexcept {
  try {
    return decode(decoder, file, image);
  } catch (...) {
    return Outcome::TooLarge;
  }
}

}  // namespace

int32_t LoadPngImage(const std::string& path, PatternImage& image) noexcept {
  image.pixels.clear();
  image.width = 0;
  image.height = 0;
  image.channels = 0;
  std::FILE* const file = openFile(path, "rb");
  if (!file) return kNotOpened;

  Decoder decoder;
  const ScopeGuard destroy([&] { png_destroy_read_struct(&decoder.png, &decoder.info, nullptr); });
  // Deliberate: the file is left open when a structure cannot be made and when the library reports an error.
  decoder.png = png_create_read_struct(PNG_LIBPNG_VER_STRING, nullptr, jumpBack, ignoreWarning);
  if (!decoder.png) return kNoReadStructure;
  decoder.info = png_create_info_struct(decoder.png);
  if (!decoder.info) return kNoInfoStructure;
  const Outcome outcome = decodeWithinMemory(decoder, file, image);
  if (outcome == Outcome::LibraryError) return kReadFailed;
  std::fclose(file);
  return outcome == Outcome::Done ? 0 : kReadFailed;
}

}  // namespace quiltor
