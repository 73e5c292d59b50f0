#include "tests/render/jpeg_file.h"

#include <cstdio>
#include <memory>
#include <stdexcept>

#include <jpeglib.h>

namespace quiltor::render_tests {
namespace {

using File = std::unique_ptr<FILE, int (*)(FILE*)>;

File open(const std::string& path, const char* mode) {
  File file(std::fopen(path.c_str(), mode), &std::fclose);
  if (!file) throw std::runtime_error(path + ": cannot be opened");
  return file;
}

void compress(const std::string& path, FilePixels pixels) {
  const File file = open(path, "wb");
  jpeg_error_mgr errors;
  jpeg_compress_struct encoder;
  encoder.err = jpeg_std_error(&errors);
  jpeg_create_compress(&encoder);
  jpeg_stdio_dest(&encoder, file.get());
  encoder.image_width = static_cast<JDIMENSION>(pixels.width);
  encoder.image_height = static_cast<JDIMENSION>(pixels.height);
  encoder.input_components = 3;
  encoder.in_color_space = JCS_RGB;
  jpeg_set_defaults(&encoder);
  jpeg_start_compress(&encoder, TRUE);
  while (encoder.next_scanline < encoder.image_height) {
    JSAMPROW row = pixels.bytes.data() + encoder.next_scanline * static_cast<std::size_t>(pixels.width) * 3;
    jpeg_write_scanlines(&encoder, &row, 1);
  }
  jpeg_finish_compress(&encoder);
  jpeg_destroy_compress(&encoder);
}

FilePixels decompress(const std::string& path) {
  const File file = open(path, "rb");
  jpeg_error_mgr errors;
  jpeg_decompress_struct decoder;
  decoder.err = jpeg_std_error(&errors);
  jpeg_create_decompress(&decoder);
  jpeg_stdio_src(&decoder, file.get());
  jpeg_read_header(&decoder, TRUE);
  jpeg_start_decompress(&decoder);
  FilePixels pixels{
      static_cast<int>(decoder.output_width), static_cast<int>(decoder.output_height), decoder.output_components, {}};
  const std::size_t stride = static_cast<std::size_t>(pixels.width) * static_cast<std::size_t>(pixels.channels);
  pixels.bytes.resize(stride * static_cast<std::size_t>(pixels.height));
  while (decoder.output_scanline < decoder.output_height) {
    JSAMPROW row = pixels.bytes.data() + decoder.output_scanline * stride;
    jpeg_read_scanlines(&decoder, &row, 1);
  }
  jpeg_finish_decompress(&decoder);
  jpeg_destroy_decompress(&decoder);
  return pixels;
}

}  // namespace

FilePixels writeJpeg(const std::string& path, const FilePixels& pixels) {
  compress(path, pixels);
  return decompress(path);
}

}  // namespace quiltor::render_tests
