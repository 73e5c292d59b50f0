#include "formats/picture_limit.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
// The library's header needs the C library's to come first.
#include <jpeglib.h>

#include "formats/image_file.h"
#include "formats/test_pictures.h"
#include "platform/open_files.h"
#include "platform/scratch_folder.h"

namespace {

int startedJpegDecoders = 0;

}  // namespace

// The linker has the program call this in the place of the library's function, which has the other name.
extern "C" boolean __real_jpeg_start_decompress(j_decompress_ptr info);
extern "C" boolean __wrap_jpeg_start_decompress(j_decompress_ptr info) {
  ++startedJpegDecoders;
  return __real_jpeg_start_decompress(info);
}

namespace quiltor {
namespace {

TEST(PictureLimit, APngThatWouldTakeMoreIsRefusedBeforeItsMemoryIsAskedFor) {
  const ScratchFolder scratch;
  // A bit a pixel in the file, four bytes in memory.
  writePng(
      scratch.path("large.png"),
      {.width = 20000, .height = 16384, .bitDepth = 1, .colour = PNG_COLOR_TYPE_GRAY, .pixels = Bytes(2500 * 16384)});
  PatternImage image;
  const int before = openFiles();
  EXPECT_EQ(LoadPngImage(scratch.path("large.png"), image), -4);
  EXPECT_EQ(image.width, 20000);
  EXPECT_EQ(image.pixels.capacity(), 0u);
  EXPECT_FALSE(isWhole(image));
  EXPECT_EQ(openFiles(), before);
}

// The header of a small picture is made to promise another size.
void setJpegSize(const std::string& path, uint8_t frameMarker, uint8_t byteOfBothSides) {
  Bytes bytes = readBytes(path);
  // Marker, length and depth, then height and width.
  const uint8_t frameHeader[] = {0xFF, frameMarker, 0, 17, 8};
  const auto frame = std::search(bytes.begin(), bytes.end(), std::begin(frameHeader), std::end(frameHeader));
  ASSERT_NE(frame, bytes.end());
  std::fill_n(frame + 5, 4, byteOfBothSides);
  writeBytes(path, bytes);
}

TEST(PictureLimit, AJpegThatWouldTakeMoreIsRefusedBeforeItsMemoryIsAskedFor) {
  constexpr uint8_t kBaseline = 0xC0, kProgressive = 0xC2;
  const ScratchFolder scratch;
  const std::string path = scratch.path("large.jpg");
  for (const uint8_t kind : {kBaseline, kProgressive}) {
    writeJpeg(path, {.width = 8, .height = 8, .pixels = Bytes(192, 255), .progressive = kind == kProgressive});
    setJpegSize(path, kind, 0x5D);
    PatternImage image;
    const int before = openFiles();
    startedJpegDecoders = 0;
    EXPECT_EQ(LoadJpegImage(path, image), -1);
    // Once started, the decoder keeps twice as much of a progressive picture as its pixels take.
    EXPECT_EQ(startedJpegDecoders, 0);
    EXPECT_EQ(image.width, 0);
    EXPECT_EQ(image.pixels.capacity(), 0u);
    EXPECT_EQ(openFiles(), before);
  }
}

TEST(PictureLimit, IsOneGibibyte) { EXPECT_EQ(kMostPixelBytes, 1073741824); }

TEST(IsWhole, ComparesTheArrayWithTheSize) {
  EXPECT_TRUE(isWhole({2, 3, 3, Bytes(18)}));
  EXPECT_TRUE(isWhole({2, 3, 1, Bytes(18)}));
  EXPECT_FALSE(isWhole({2, 3, 3, Bytes(17)}));
  EXPECT_FALSE(isWhole({}));
  EXPECT_FALSE(isWhole({-2, -3, 3, Bytes(18)}));
  EXPECT_FALSE(isWhole({65536, 65536, 4, Bytes(18)}));
}

}  // namespace
}  // namespace quiltor
