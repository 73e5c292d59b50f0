#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

#include "formats/image_file.h"
#include "formats/test_pictures.h"
#include "platform/open_files.h"
#include "platform/scratch_folder.h"

namespace quiltor {
namespace {

using testing::Each;
using testing::IsEmpty;
using testing::SizeIs;

class JpegLoad : public testing::Test {
 protected:
  int32_t load() { return LoadJpegImage(path_, image_); }

  ScratchFolder scratch_;
  std::string path_ = scratch_.path("picture.jpg");
  PatternImage image_ = {7, 8, 3, {1, 2, 3}};
};

TEST_F(JpegLoad, AColourPictureHasThreeChannels) {
  Bytes red;
  for (int pixel = 0; pixel < 20 * 10; ++pixel) red.insert(red.end(), {200, 30, 90});
  writeJpeg(path_, {.width = 20, .height = 10, .pixels = red});
  ASSERT_EQ(load(), 0);
  EXPECT_EQ(image_.width, 20);
  EXPECT_EQ(image_.height, 10);
  EXPECT_EQ(image_.channels, 3);
  ASSERT_THAT(image_.pixels, SizeIs(600));
  for (size_t i = 0; i < image_.pixels.size(); ++i) ASSERT_NEAR(image_.pixels[i], red[i], 2) << "byte " << i;
}

TEST_F(JpegLoad, RowsLieTopToBottomWithoutPadding) {
  Bytes halves;
  for (int y = 0; y < 16; ++y) {
    for (int x = 0; x < 13; ++x) halves.insert(halves.end(), 3, y < 8 ? 240 : 20);
  }
  writeJpeg(path_, {.width = 13, .height = 16, .pixels = halves});
  ASSERT_EQ(load(), 0);
  ASSERT_THAT(image_.pixels, SizeIs(13 * 16 * 3));
  for (size_t i = 0; i < image_.pixels.size(); ++i) ASSERT_NEAR(image_.pixels[i], halves[i], 2) << "byte " << i;
}

TEST_F(JpegLoad, AGreyPictureSaysOneChannelAndHoldsThreeEqualBytesPerPixel) {
  const Bytes grey = {0, 30, 60, 90, 120, 150, 180, 210, 240, 255, 0, 30, 60, 90, 120, 150, 180, 210, 240, 255};
  writeJpeg(path_, {.width = 10, .height = 2, .components = 1, .colour = JCS_GRAYSCALE, .pixels = grey});
  ASSERT_EQ(load(), 0);
  EXPECT_EQ(image_.channels, 1);
  ASSERT_THAT(image_.pixels, SizeIs(60));
  for (size_t pixel = 0; pixel < grey.size(); ++pixel) {
    EXPECT_NEAR(image_.pixels[pixel * 3], grey[pixel], 4) << "pixel " << pixel;
    EXPECT_EQ(image_.pixels[pixel * 3 + 1], image_.pixels[pixel * 3]);
    EXPECT_EQ(image_.pixels[pixel * 3 + 2], image_.pixels[pixel * 3]);
  }
}

TEST_F(JpegLoad, AFourColourPictureHasItsFourInksAsTheLibraryGivesThem) {
  Bytes inks;
  for (int pixel = 0; pixel < 8 * 8; ++pixel) inks.insert(inks.end(), {10, 80, 160, 250});
  writeJpeg(path_, {.width = 8, .height = 8, .components = 4, .colour = JCS_CMYK, .pixels = inks});
  ASSERT_EQ(load(), 0);
  EXPECT_EQ(image_.channels, 4);
  ASSERT_THAT(image_.pixels, SizeIs(8 * 8 * 4));
  for (size_t i = 0; i < inks.size(); ++i) ASSERT_NEAR(image_.pixels[i], inks[i], 2) << "byte " << i;
}

TEST_F(JpegLoad, TwoComponentsStayTwoChannelsWithinAnArrayForThree) {
  writeJpeg(path_, {.width = 9, .height = 5, .components = 2, .colour = JCS_UNKNOWN, .pixels = Bytes(90, 77)});
  ASSERT_EQ(load(), 0);
  EXPECT_EQ(image_.channels, 2);
  ASSERT_THAT(image_.pixels, SizeIs(9 * 5 * 3));
  EXPECT_THAT(Bytes(image_.pixels.begin(), image_.pixels.begin() + 90), Each(77));
}

TEST_F(JpegLoad, AProgressivePictureIsReadWhole) {
  writeJpeg(path_, {.width = 33, .height = 17, .pixels = Bytes(33 * 17 * 3, 99), .progressive = true});
  ASSERT_EQ(load(), 0);
  EXPECT_THAT(image_.pixels, SizeIs(33 * 17 * 3));
  EXPECT_THAT(image_.pixels, Each(99));
}

TEST_F(JpegLoad, APictureOfMoreScansThanAnyEncoderMakesFails) {
  writeJpeg(path_, {.width = 20, .height = 10, .pixels = someBytes(600), .progressive = true});
  const Bytes whole = readBytes(path_);
  // The last scan, a refinement of the highest bits that are left, again and again.
  const uint8_t kScan[] = {0xFF, 0xDA};
  const auto last = std::find_end(whole.begin(), whole.end(), std::begin(kScan), std::end(kScan));
  ASSERT_NE(last, whole.end());
  const Bytes scan(last, whole.end() - 2);
  const auto withScans = [&](size_t count) {
    Bytes bytes(whole.begin(), last);
    while (count-- > 0) bytes.insert(bytes.end(), scan.begin(), scan.end());
    bytes.insert(bytes.end(), whole.end() - 2, whole.end());
    writeBytes(path_, bytes);
    return load();
  };
  EXPECT_EQ(withScans(400), 0);
  EXPECT_EQ(withScans(600), -1);
  EXPECT_EQ(image_.width, 0);
}

TEST_F(JpegLoad, AFileOfTablesWithoutAPictureFails) {
  writeJpeg(path_, {.width = 8, .height = 8, .pixels = {}, .tablesOnly = true});
  EXPECT_EQ(load(), -1);
}

TEST_F(JpegLoad, AMissingFileFailsAndLeavesAnEmptyRecord) {
  EXPECT_EQ(load(), -1);
  EXPECT_EQ(image_.width, 0);
  EXPECT_EQ(image_.height, 0);
  EXPECT_EQ(image_.channels, 0);
  EXPECT_THAT(image_.pixels, IsEmpty());
}

TEST_F(JpegLoad, AnEmptyFileFails) {
  writeBytes(path_, {});
  EXPECT_EQ(load(), -1);
}

TEST_F(JpegLoad, AFileOfAnotherFormatFails) {
  writePng(path_, {.width = 1, .height = 1, .pixels = {1, 2, 3}});
  EXPECT_EQ(load(), -1);
  EXPECT_EQ(image_.channels, 0);
}

TEST_F(JpegLoad, AFileThatEndsInTheHeaderFails) {
  writeJpeg(path_, {.width = 20, .height = 10, .pixels = someBytes(600)});
  Bytes bytes = readBytes(path_);
  bytes.resize(100);
  writeBytes(path_, bytes);
  EXPECT_EQ(load(), -1);
}

TEST_F(JpegLoad, AFileThatEndsInThePictureKeepsWhatItHeldAndIsGreyBelow) {
  writeJpeg(path_, {.width = 64, .height = 64, .pixels = Bytes(64 * 64 * 3, 250)});
  Bytes bytes = readBytes(path_);
  bytes.resize(bytes.size() - 30);
  writeBytes(path_, bytes);
  ASSERT_EQ(load(), 0);
  ASSERT_THAT(image_.pixels, SizeIs(64 * 64 * 3));
  EXPECT_NEAR(image_.pixels.front(), 250, 1);
}

TEST_F(JpegLoad, DamageBehindTheRowsFailsAndLeavesWhatWasRead) {
  writeJpeg(path_, {.width = 20, .height = 10, .pixels = Bytes(600, 250)});
  Bytes bytes = readBytes(path_);
  // A quantisation table of a number that does not exist, in the place of the end marker.
  bytes.resize(bytes.size() - 2);
  bytes.insert(bytes.end(), {0xFF, 0xDB, 0, 67, 15});
  bytes.resize(bytes.size() + 64);
  writeBytes(path_, bytes);
  EXPECT_EQ(load(), -1);
  EXPECT_EQ(image_.width, 20);
  EXPECT_EQ(image_.height, 10);
  EXPECT_EQ(image_.channels, 3);
  EXPECT_THAT(image_.pixels, SizeIs(600));
  EXPECT_THAT(image_.pixels, Each(250));
}

TEST_F(JpegLoad, EveryWayOutClosesTheFileAndPrintsNothing) {
  const int before = openFiles();
  testing::internal::CaptureStderr();
  writeJpeg(path_, {.width = 20, .height = 10, .pixels = someBytes(600)});
  EXPECT_EQ(load(), 0);
  Bytes bytes = readBytes(path_);
  bytes.resize(bytes.size() / 2);
  writeBytes(path_, bytes);
  EXPECT_EQ(load(), 0);
  bytes.resize(100);
  writeBytes(path_, bytes);
  EXPECT_EQ(load(), -1);
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
  EXPECT_EQ(openFiles(), before);
}

}  // namespace
}  // namespace quiltor
