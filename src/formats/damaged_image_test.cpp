#include <gtest/gtest.h>
#include <zlib.h>

#include <algorithm>
#include <csetjmp>
#include <random>

#include "formats/image_file.h"
#include "formats/test_pictures.h"
#include "platform/scratch_folder.h"
#include "platform/testing/closing_left_files.h"

namespace quiltor {
namespace {

constexpr unsigned kSeed = 20240607;
constexpr int kTurns = 8000;
constexpr uint32_t kMostPixels = 200000;

// The three ways in which files are damaged: bytes that changed, a piece that is missing, an end that is missing.
void damage(Bytes& bytes, std::mt19937& random) {
  const auto place = [&] { return static_cast<std::ptrdiff_t>(random() % bytes.size()); };
  switch (random() % 6) {
    case 0: {
      const auto begin = bytes.begin() + place();
      bytes.erase(begin, begin + std::min<std::ptrdiff_t>(bytes.end() - begin, 1 + place() / 8));
      break;
    }
    case 1:
      bytes.resize(static_cast<size_t>(place()));
      break;
    default:
      for (size_t count = 1 + random() % 3; count > 0; --count) {
        // Headers deserve as many hits as the rest of the file, which is much longer.
        const auto at = random() % 2 ? place() : place() % 64;
        bytes[static_cast<size_t>(at)] = static_cast<uint8_t>(random() % 3 ? random() : random() % 2 * 255);
      }
  }
  if (bytes.empty()) bytes.push_back(0);
}

// Gives every chunk the checksum of its damaged contents, so that they reach the decoder.
void repairChecksums(Bytes& bytes) {
  for (size_t chunk = 8; chunk + 12 <= bytes.size();) {
    const size_t length = png_get_uint_32(&bytes[chunk]);
    if (length > bytes.size() - chunk - 12) return;
    png_save_uint_32(&bytes[chunk + 8 + length],
                     static_cast<png_uint_32>(crc32(0, &bytes[chunk + 4], static_cast<uInt>(length + 4))));
    chunk += 12 + length;
  }
}

// How many pixels the header of a JPEG file promises, 0 when it cannot be read.
uint64_t promisedPixels(const Bytes& bytes) {
  struct Reader {
    jpeg_decompress_struct info;
    jpeg_error_mgr errors;
    std::jmp_buf onError;
  };
  static Reader reader;
  reader.info.err = jpeg_std_error(&reader.errors);
  reader.errors.output_message = [](j_common_ptr) {};
  reader.errors.error_exit = [](j_common_ptr) { std::longjmp(reader.onError, 1); };
  jpeg_create_decompress(&reader.info);
  const bool read = setjmp(reader.onError) == 0;
  if (read) {
    jpeg_mem_src(&reader.info, bytes.data(), static_cast<unsigned long>(bytes.size()));
    jpeg_read_header(&reader.info, TRUE);
  }
  const uint64_t pixels = read ? uint64_t{reader.info.image_width} * reader.info.image_height : 0;
  jpeg_destroy_decompress(&reader.info);
  return pixels;
}

size_t bytesFor(const PatternImage& image, int bytesPerPixel) {
  return static_cast<size_t>(image.width) * static_cast<size_t>(image.height) * static_cast<size_t>(bytesPerPixel);
}

struct Counts {
  int read = 0;
  int refused = 0;
};

class DamagedImage : public testing::Test {
 protected:
  ScratchFolder scratch_;
  std::string path_ = scratch_.path("damaged");
  std::mt19937 random_{kSeed};
};

TEST_F(DamagedImage, APngIsReadWholeOrRefused) {
  std::vector<Bytes> originals;
  const auto add = [&](const PngContents& contents) {
    writePng(path_, contents);
    originals.push_back(readBytes(path_));
  };
  const png_color_16 transparent = {.index = 0, .red = 1, .green = 2, .blue = 3, .gray = 4};
  add({.width = 20, .height = 15, .pixels = someBytes(20 * 15 * 3), .transparent = &transparent});
  add({.width = 20, .height = 15, .colour = PNG_COLOR_TYPE_RGB_ALPHA, .pixels = someBytes(20 * 15 * 4)});
  add({.width = 20, .height = 15, .bitDepth = 16, .pixels = someBytes(20 * 15 * 6), .interlaced = true});
  add({.width = 20, .height = 15, .bitDepth = 4, .colour = PNG_COLOR_TYPE_GRAY, .pixels = someBytes(10 * 15)});
  add({.width = 20,
       .height = 15,
       .bitDepth = 4,
       .colour = PNG_COLOR_TYPE_PALETTE,
       .pixels = someBytes(10 * 15),
       .interlaced = true,
       .palette = std::vector<png_color>(16, png_color{1, 2, 3}),
       .paletteAlpha = {0, 128}});
  Counts counts;
  for (int turn = 0; turn < kTurns; ++turn) {
    Bytes bytes = originals[static_cast<size_t>(turn) % originals.size()];
    damage(bytes, random_);
    if (turn % 4 != 0) repairChecksums(bytes);
    writeBytes(path_, bytes);
    PatternImage image;
    // A refusal leaves the file open; thousands would use up what the process may open.
    const int32_t result = closingLeftFiles([&] { return LoadPngImage(path_, image); });
    ASSERT_TRUE(result == 0 || result == -4) << result << " in turn " << turn;
    ++(result == 0 ? counts.read : counts.refused);
    ASSERT_EQ(image.pixels.size(), result == 0 ? bytesFor(image, 4) : 0) << "in turn " << turn;
  }
  EXPECT_GT(counts.read, kTurns / 30);
  EXPECT_GT(counts.refused, kTurns / 30);
}

TEST_F(DamagedImage, AJpegIsReadWholeOrRefused) {
  std::vector<Bytes> originals;
  const auto add = [&](const JpegContents& contents) {
    writeJpeg(path_, contents);
    originals.push_back(readBytes(path_));
  };
  add({.width = 40, .height = 30, .pixels = someBytes(40 * 30 * 3)});
  add({.width = 40, .height = 30, .pixels = someBytes(40 * 30 * 3), .progressive = true});
  add({.width = 40, .height = 30, .components = 1, .colour = JCS_GRAYSCALE, .pixels = someBytes(40 * 30)});
  add({.width = 40, .height = 30, .components = 4, .colour = JCS_CMYK, .pixels = someBytes(40 * 30 * 4)});
  Counts counts;
  int tooLarge = 0;
  for (int turn = 0; turn < kTurns; ++turn) {
    Bytes bytes = originals[static_cast<size_t>(turn) % originals.size()];
    damage(bytes, random_);
    // Such a picture would be read, but it takes longer than a test should.
    if (promisedPixels(bytes) > kMostPixels) {
      ++tooLarge;
      continue;
    }
    writeBytes(path_, bytes);
    PatternImage image;
    const int32_t result = LoadJpegImage(path_, image);
    ASSERT_TRUE(result == 0 || result == -1) << result << " in turn " << turn;
    ++(result == 0 ? counts.read : counts.refused);
    const size_t whole = bytesFor(image, std::max<int>(3, image.channels));
    ASSERT_EQ(image.pixels.size(), whole) << "in turn " << turn;
    ASSERT_TRUE(result != 0 || whole > 0) << "in turn " << turn;
  }
  EXPECT_GT(counts.read, kTurns / 30);
  EXPECT_GT(counts.refused, kTurns / 30);
  EXPECT_LT(tooLarge, kTurns / 10);
}

}  // namespace
}  // namespace quiltor
