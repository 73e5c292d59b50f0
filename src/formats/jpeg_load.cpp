#include <algorithm>
#include <csetjmp>
#include <cstdio>
// The library's header needs the C library's to come first.
#include <jpeglib.h>

#include "base/checked_size.h"
#include "base/scope_guard.h"
#include "formats/image_file.h"
#include "formats/picture_limit.h"
#include "platform/file.h"

namespace quiltor {
namespace {

constexpr int32_t kFailed = -1;

// Each scan is a pass over the whole picture, and an empty one costs the file ten bytes. Encoders make about ten.
constexpr int kMostScans = 500;

struct Decoder {
  jpeg_decompress_struct info;
  jpeg_error_mgr errors;
  jpeg_progress_mgr progress;
  std::jmp_buf onError;
};

void ignoreMessage(j_common_ptr) {}

[[noreturn]] void jumpBack(j_common_ptr info) {
  info->err->output_message(info);
  std::longjmp(static_cast<Decoder*>(info->client_data)->onError, 1);
}

void countScans(j_common_ptr info) {
  if (static_cast<Decoder*>(info->client_data)->info.input_scan_number > kMostScans) info->err->error_exit(info);
}

// The library leaves its calls with longjmp, so no object with a destructor lives in the three functions below; their
// buffers belong to the caller.

bool readHeader(Decoder& decoder, std::FILE* file) {
  decoder.info.err = jpeg_std_error(&decoder.errors);
  decoder.errors.output_message = ignoreMessage;
  decoder.errors.error_exit = jumpBack;
  decoder.info.client_data = &decoder;
  if (setjmp(decoder.onError)) return false;
  jpeg_create_decompress(&decoder.info);
  decoder.progress.progress_monitor = countScans;
  decoder.info.progress = &decoder.progress;
  jpeg_stdio_src(&decoder.info, file);
  jpeg_read_header(&decoder.info, TRUE);
  jpeg_calc_output_dimensions(&decoder.info);
  return true;
}

// Reads all scans of a progressive picture, for which the library keeps two bytes for each one of its pixels' bytes.
bool startDecoder(Decoder& decoder) {
  if (setjmp(decoder.onError)) return false;
  jpeg_start_decompress(&decoder.info);
  return true;
}

// greyRow holds a row of a one-component picture and is null for any other, whose rows have rowBytes bytes.
bool readRows(Decoder& decoder, uint8_t* pixels, size_t rowBytes, uint8_t* greyRow) {
  if (setjmp(decoder.onError)) return false;
  while (decoder.info.output_scanline < decoder.info.output_height) {
    uint8_t* const pictureRow = pixels + decoder.info.output_scanline * rowBytes;
    uint8_t* row = greyRow ? greyRow : pictureRow;
    if (jpeg_read_scanlines(&decoder.info, &row, 1) != 1) return false;
    if (!greyRow) continue;
    for (size_t x = 0; x < decoder.info.output_width; ++x) std::fill_n(pictureRow + x * 3, 3, greyRow[x]);
  }
  jpeg_finish_decompress(&decoder.info);
  return true;
}

int32_t decode(std::FILE* file, PatternImage& image) {
  Decoder decoder = {};
  const ScopeGuard destroy([&] { jpeg_destroy_decompress(&decoder.info); });
  if (!readHeader(decoder, file)) return kFailed;
  const int components = decoder.info.out_color_components;
  const auto size = checkedProduct({decoder.info.output_height, decoder.info.output_width, std::max(3, components)});
  if (!size || *size > kMostPixelBytes || !startDecoder(decoder)) return kFailed;

  const bool grey = components == 1;
  image.width = static_cast<int32_t>(decoder.info.output_width);
  image.height = static_cast<int32_t>(decoder.info.output_height);
  image.channels = static_cast<uint8_t>(components);
  image.pixels.resize(static_cast<size_t>(*size));
  std::vector<uint8_t> greyRow(grey ? decoder.info.output_width : 0);
  // Deliberate: two components are packed at two bytes a pixel into an array with room for three.
  const size_t rowBytes = size_t{decoder.info.output_width} * static_cast<size_t>(grey ? 3 : components);
  return readRows(decoder, image.pixels.data(), rowBytes, grey ? greyRow.data() : nullptr) ? 0 : kFailed;
}

}  // namespace

int32_t LoadJpegImage(const std::string& path, PatternImage& image) noexcept {
  image.pixels.clear();
  image.width = 0;
  image.height = 0;
  image.channels = 0;
  std::FILE* const file = openFile(path, "rb");
  if (!file) return kFailed;
  const ScopeGuard close([&] { std::fclose(file); });
  try {
    return decode(file, image);
  } catch (...) {
    // The picture that the header promises does not fit into memory.
    return kFailed;
  }
}

}  // namespace quiltor
