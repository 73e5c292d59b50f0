// The library's header needs the standard streams before it.
#include <cstdio>

#include <jpeglib.h>

#include <csetjmp>
#include <cstring>

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

bool start(JpegJob& job, const std::vector<unsigned char>& bytes) {
  if (setjmp(job.jump)) return false;
  jpeg_create_decompress(&job.reader);
  job.reader.client_data = &job;
  jpeg_mem_src(&job.reader, bytes.data(), bytes.size());
  jpeg_read_header(&job.reader, TRUE);
  job.reader.out_color_space = JCS_RGB;
  jpeg_start_decompress(&job.reader);
  return true;
}

bool readRows(JpegJob& job, unsigned char* rgba, unsigned char* row) {
  if (setjmp(job.jump)) return false;
  while (job.reader.output_scanline < job.reader.output_height) {
    unsigned char* pixel = rgba + std::size_t(job.reader.output_scanline) * job.reader.output_width * 4;
    jpeg_read_scanlines(&job.reader, &row, 1);
    for (JDIMENSION x = 0; x < job.reader.output_width; ++x, pixel += 4) {
      pixel[0] = row[3 * x];
      pixel[1] = row[3 * x + 1];
      pixel[2] = row[3 * x + 2];
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
    std::vector<unsigned char> row(std::size_t(job.reader.output_width) * 3);
    whole = makeRoom(picture);
    if (!whole) std::strcpy(job.problem, kTooLarge);
    whole = whole && readRows(job, picture.samples.data(), row.data());
  }
  jpeg_destroy_decompress(&job.reader);
  return whole ? std::string() : job.problem;
}

}  // namespace quiltor::standalone
