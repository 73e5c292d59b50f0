// The library's header needs the standard streams before it.
#include <cstdio>

#include <jpeglib.h>

#include <algorithm>
#include <csetjmp>
#include <cstring>
#include <limits>

#include "standalone/host/picture_codec.h"

namespace quiltor::standalone {
namespace {

// Lives in the caller of the function that sets the jump, which has no objects with destructors of its own.
struct JpegJob {
  jpeg_error_mgr manager;
  std::jmp_buf jump;
  char problem[JMSG_LENGTH_MAX] = "";
  jpeg_decompress_struct reader;
};

void fail(j_common_ptr reader) {
  auto* job = static_cast<JpegJob*>(reader->client_data);
  reader->err->format_message(reader, job->problem);
  std::longjmp(job->jump, 1);
}

// A picture with a warning is damaged: its missing part would be grey.
void failOnWarning(j_common_ptr reader, int level) {
  if (level < 0) fail(reader);
}

// Files with the marker keep inks the other way round: 255 is none.
unsigned char inkAsLight(int ink, int black, bool inverted) {
  if (!inverted) {
    ink = 255 - ink;
    black = 255 - black;
  }
  return static_cast<unsigned char>((ink * black + 127) / 255);
}

bool start(JpegJob& job, const std::vector<unsigned char>& bytes) {
  if (setjmp(job.jump)) return false;
  jpeg_create_decompress(&job.reader);
  job.reader.client_data = &job;
  // The library counts bytes in 32 bits on some systems. No picture that is small enough takes more.
  const std::size_t length = std::min<std::size_t>(bytes.size(), std::numeric_limits<unsigned long>::max());
  jpeg_mem_src(&job.reader, bytes.data(), static_cast<unsigned long>(length));
  jpeg_read_header(&job.reader, TRUE);
  job.reader.out_color_space = job.reader.num_components == 4 ? JCS_CMYK : JCS_RGB;
  jpeg_start_decompress(&job.reader);
  return true;
}

bool readRows(JpegJob& job, unsigned char* rgba, unsigned char* row) {
  if (setjmp(job.jump)) return false;
  while (job.reader.output_scanline < job.reader.output_height) {
    unsigned char* pixel = rgba + std::size_t(job.reader.output_scanline) * job.reader.output_width * 4;
    jpeg_read_scanlines(&job.reader, &row, 1);
    const int components = job.reader.output_components;
    for (JDIMENSION x = 0; x < job.reader.output_width; ++x, pixel += 4) {
      for (int c = 0; c < 3; ++c) {
        const unsigned char* inks = row + std::size_t(components) * x;
        pixel[c] = components == 4 ? inkAsLight(inks[c], inks[3], job.reader.saw_Adobe_marker) : inks[c];
      }
      pixel[3] = 255;
    }
  }
  jpeg_finish_decompress(&job.reader);
  return true;
}

}  // namespace

std::string decodeJpeg(const std::vector<unsigned char>& bytes, DecodedPicture& picture) {
  JpegJob job{};
  job.reader.err = jpeg_std_error(&job.manager);
  job.reader.client_data = &job;
  job.manager.error_exit = &fail;
  job.manager.emit_message = &failOnWarning;
  bool whole = start(job, bytes);
  if (whole) {
    picture.width = static_cast<int>(job.reader.output_width);
    picture.height = static_cast<int>(job.reader.output_height);
    picture.bytesPerSample = 1;
    std::vector<unsigned char> row(std::size_t(job.reader.output_width) *
                                   static_cast<std::size_t>(job.reader.output_components));
    whole = makeRoom(picture);
    if (!whole) std::strcpy(job.problem, kTooLarge);
    whole = whole && readRows(job, picture.samples.data(), row.data());
  }
  jpeg_destroy_decompress(&job.reader);
  return whole ? std::string() : job.problem;
}

}  // namespace quiltor::standalone
