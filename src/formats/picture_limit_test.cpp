#include "formats/picture_limit.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "formats/image_file.h"
#include "formats/test_pictures.h"
#include "platform/open_files.h"
#include "platform/scratch_folder.h"

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

TEST(PictureLimit, AJpegThatWouldTakeMoreIsRefusedBeforeItsMemoryIsAskedFor) {
  const ScratchFolder scratch;
  const std::string path = scratch.path("large.jpg");
  writeJpeg(path, {.width = 8, .height = 8, .pixels = Bytes(192, 255)});
  Bytes bytes = readBytes(path);
  // The frame's header: marker, length and depth, then height and width.
  const uint8_t kFrame[] = {0xFF, 0xC0, 0, 17, 8};
  const auto frame = std::search(bytes.begin(), bytes.end(), std::begin(kFrame), std::end(kFrame));
  ASSERT_NE(frame, bytes.end());
  std::fill_n(frame + 5, 4, uint8_t{0x5D});
  writeBytes(path, bytes);
  PatternImage image;
  EXPECT_EQ(LoadJpegImage(path, image), -1);
  EXPECT_EQ(image.width, 0x5D5D);
  EXPECT_EQ(image.pixels.capacity(), 0u);
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
