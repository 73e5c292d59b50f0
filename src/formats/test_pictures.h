#pragma once

#include <png.h>

#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <system_error>
#include <vector>
// The library's header needs the C library's to come first.
#include <jpeglib.h>

#include "base/utf8_path.h"
#include "platform/file.h"

namespace quiltor {

using Bytes = std::vector<uint8_t>;

// For tests: a PNG file as its header and its rows say it, packed as in the file.
struct PngContents {
  png_uint_32 width = 0;
  png_uint_32 height = 0;
  int bitDepth = 8;
  int colour = PNG_COLOR_TYPE_RGB;
  Bytes pixels;
  bool interlaced = false;
  std::vector<png_color> palette = {};
  Bytes paletteAlpha = {};
  const png_color_16* transparent = nullptr;
};

inline size_t rowBytes(const PngContents& contents) { return contents.pixels.size() / contents.height; }

inline void writePng(const std::string& path, PngContents contents) {
  std::FILE* file = openFile(path, "wb");
  png_structp png = png_create_write_struct(PNG_LIBPNG_VER_STRING, nullptr, nullptr, nullptr);
  png_infop info = png_create_info_struct(png);
  png_init_io(png, file);
  png_set_IHDR(png, info, contents.width, contents.height, contents.bitDepth, contents.colour,
               contents.interlaced ? PNG_INTERLACE_ADAM7 : PNG_INTERLACE_NONE, PNG_COMPRESSION_TYPE_DEFAULT,
               PNG_FILTER_TYPE_DEFAULT);
  if (!contents.palette.empty()) {
    png_set_PLTE(png, info, contents.palette.data(), static_cast<int>(contents.palette.size()));
  }
  if (!contents.paletteAlpha.empty()) {
    png_set_tRNS(png, info, contents.paletteAlpha.data(), static_cast<int>(contents.paletteAlpha.size()), nullptr);
  }
  if (contents.transparent) png_set_tRNS(png, info, nullptr, 0, contents.transparent);
  png_write_info(png, info);
  std::vector<png_bytep> rows;
  for (size_t y = 0; y < contents.height; ++y) rows.push_back(contents.pixels.data() + y * rowBytes(contents));
  png_write_image(png, rows.data());
  png_write_end(png, nullptr);
  png_destroy_write_struct(&png, &info);
  std::fclose(file);
}

// For tests: a JPEG file. pixels has components bytes a pixel in the colour space.
struct JpegContents {
  JDIMENSION width = 0;
  JDIMENSION height = 0;
  int components = 3;
  J_COLOR_SPACE colour = JCS_RGB;
  Bytes pixels;
  bool progressive = false;
  bool tablesOnly = false;
};

inline void writeJpeg(const std::string& path, JpegContents contents) {
  std::FILE* file = openFile(path, "wb");
  jpeg_compress_struct info = {};
  jpeg_error_mgr errors;
  info.err = jpeg_std_error(&errors);
  jpeg_create_compress(&info);
  jpeg_stdio_dest(&info, file);
  info.image_width = contents.width;
  info.image_height = contents.height;
  info.input_components = contents.components;
  info.in_color_space = contents.colour;
  jpeg_set_defaults(&info);
  jpeg_set_quality(&info, 100, TRUE);
  if (contents.progressive) jpeg_simple_progression(&info);
  if (contents.tablesOnly) {
    jpeg_write_tables(&info);
  } else {
    jpeg_start_compress(&info, TRUE);
    while (info.next_scanline < info.image_height) {
      JSAMPROW row = contents.pixels.data() +
                     size_t{info.next_scanline} * contents.width * static_cast<size_t>(contents.components);
      jpeg_write_scanlines(&info, &row, 1);
    }
    jpeg_finish_compress(&info);
  }
  jpeg_destroy_compress(&info);
  std::fclose(file);
}

// For tests: a picture whose bytes all differ from their neighbours.
inline Bytes someBytes(size_t count) {
  Bytes bytes(count);
  for (size_t i = 0; i < count; ++i) bytes[i] = static_cast<uint8_t>(i * 37 + i / 7);
  return bytes;
}

inline Bytes readBytes(const std::string& path) {
  std::ifstream file(pathFromUtf8(path), std::ios::binary);
  return Bytes(std::istreambuf_iterator<char>(file), {});
}

inline void writeBytes(const std::string& path, const Bytes& bytes) {
  // Some file systems wait for the disk when a file is overwritten.
  std::error_code stillOpen;
  std::filesystem::remove(pathFromUtf8(path), stillOpen);
  std::ofstream(pathFromUtf8(path), std::ios::binary)
      .write(reinterpret_cast<const char*>(bytes.data()), std::ssize(bytes));
}

}  // namespace quiltor
