#include <png.h>

#include <csetjmp>
#include <cstring>

#include "standalone/host/picture_codec.h"

namespace quiltor::standalone {
namespace {

// The library jumps over C++ frames on an error, so no object with a destructor lives in the functions below that set
// the jump; everything of theirs belongs to the caller and is passed in here.
struct PngJob {
  const std::vector<unsigned char>* source = nullptr;
  std::size_t position = 0;
  std::vector<unsigned char>* sink = nullptr;
  std::vector<png_bytep> rows;
  char problem[200] = "the PNG data are damaged";
};

void fail(png_structp png, png_const_charp message) {
  auto* job = static_cast<PngJob*>(png_get_error_ptr(png));
  std::strncpy(job->problem, message, sizeof job->problem - 1);
  png_longjmp(png, 1);
}

void ignoreWarning(png_structp, png_const_charp) {}

void readBytes(png_structp png, png_bytep destination, png_size_t count) {
  auto* job = static_cast<PngJob*>(png_get_io_ptr(png));
  if (count > job->source->size() - job->position) png_error(png, "the PNG data end too early");
  std::memcpy(destination, job->source->data() + job->position, count);
  job->position += count;
}

void writeBytes(png_structp png, png_bytep bytes, png_size_t count) {
  auto* job = static_cast<PngJob*>(png_get_io_ptr(png));
  job->sink->insert(job->sink->end(), bytes, bytes + count);
}

void flushNothing(png_structp) {}

// Header only: the caller then makes room.
bool readHeader(png_structp png, png_infop info, DecodedPicture& picture) {
  if (setjmp(png_jmpbuf(png))) return false;
  png_read_info(png, info);
  png_set_expand(png);
  png_set_gray_to_rgb(png);
  const bool deep = png_get_bit_depth(png, info) == 16;
  png_set_add_alpha(png, deep ? 0xFFFF : 0xFF, PNG_FILLER_AFTER);
  png_set_interlace_handling(png);
  png_read_update_info(png, info);
  picture.width = static_cast<int>(png_get_image_width(png, info));
  picture.height = static_cast<int>(png_get_image_height(png, info));
  picture.bytesPerSample = deep ? 2 : 1;
  return true;
}

bool readRows(png_structp png, png_infop info, png_bytepp rows) {
  if (setjmp(png_jmpbuf(png))) return false;
  png_read_image(png, rows);
  png_read_end(png, info);
  return true;
}

bool writeAll(png_structp png, png_infop info, const DecodedPicture& picture, png_bytepp rows) {
  if (setjmp(png_jmpbuf(png))) return false;
  png_set_IHDR(png, info, static_cast<png_uint_32>(picture.width), static_cast<png_uint_32>(picture.height),
               8 * picture.bytesPerSample, PNG_COLOR_TYPE_RGB_ALPHA, PNG_INTERLACE_NONE, PNG_COMPRESSION_TYPE_DEFAULT,
               PNG_FILTER_TYPE_DEFAULT);
  png_write_info(png, info);
  png_write_image(png, rows);
  png_write_end(png, info);
  return true;
}

void setRows(PngJob& job, unsigned char* samples, const DecodedPicture& picture) {
  for (int y = 0; y < picture.height; ++y)
    job.rows.push_back(samples + static_cast<std::size_t>(y) * rowBytes(picture));
}

}  // namespace

std::string decodePng(const std::vector<unsigned char>& bytes, DecodedPicture& picture) {
  PngJob job;
  job.source = &bytes;
  png_structp png = png_create_read_struct(PNG_LIBPNG_VER_STRING, &job, &fail, &ignoreWarning);
  png_infop info = png ? png_create_info_struct(png) : nullptr;
  if (!info) {
    png_destroy_read_struct(&png, nullptr, nullptr);
    return "no memory for the PNG reader";
  }
  png_set_read_fn(png, &job, &readBytes);
  bool whole = readHeader(png, info, picture);
  if (whole) {
    whole = makeRoom(picture);
    if (!whole) std::strcpy(job.problem, kTooLarge);
  }
  if (whole) {
    setRows(job, picture.samples.data(), picture);
    whole = readRows(png, info, job.rows.data());
  }
  png_destroy_read_struct(&png, &info, nullptr);
  return whole ? std::string() : job.problem;
}

std::string encodePng(const DecodedPicture& picture, std::vector<unsigned char>& bytes) {
  PngJob job;
  job.sink = &bytes;
  png_structp png = png_create_write_struct(PNG_LIBPNG_VER_STRING, &job, &fail, &ignoreWarning);
  png_infop info = png ? png_create_info_struct(png) : nullptr;
  if (!info) {
    png_destroy_write_struct(&png, nullptr);
    return "no memory for the PNG writer";
  }
  png_set_write_fn(png, &job, &writeBytes, &flushNothing);
  setRows(job, const_cast<unsigned char*>(picture.samples.data()), picture);
  const bool whole = writeAll(png, info, picture, job.rows.data());
  png_destroy_write_struct(&png, &info);
  return whole ? std::string() : job.problem;
}

}  // namespace quiltor::standalone
