#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "formats/image_file.h"
#include "formats/test_pictures.h"
#include "platform/open_files.h"
#include "platform/scratch_folder.h"

namespace quiltor {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class PngLoad : public testing::Test {
 protected:
  int32_t load() { return LoadPngImage(path_, image_); }

  // Loads what was written, shows that it says four channels of the right size, and gives its bytes.
  const Bytes& loaded(const PngContents& contents) {
    writePng(path_, contents);
    EXPECT_EQ(load(), 0);
    EXPECT_EQ(image_.width, static_cast<int32_t>(contents.width));
    EXPECT_EQ(image_.height, static_cast<int32_t>(contents.height));
    EXPECT_EQ(image_.channels, 4);
    return image_.pixels;
  }

  ScratchFolder scratch_;
  std::string path_ = scratch_.path("picture.png");
  PatternImage image_ = {7, 8, 3, {1, 2, 3}};
};

TEST_F(PngLoad, ColourBecomesOpaque) {
  EXPECT_THAT(loaded({.width = 2, .height = 1, .pixels = {1, 2, 3, 4, 5, 6}}), ElementsAre(1, 2, 3, 255, 4, 5, 6, 255));
}

TEST_F(PngLoad, ColourWithAlphaStaysAsItIs) {
  EXPECT_THAT(loaded({.width = 1, .height = 2, .colour = PNG_COLOR_TYPE_RGB_ALPHA, .pixels = {1, 2, 3, 4, 5, 6, 7, 0}}),
              ElementsAre(1, 2, 3, 4, 5, 6, 7, 0));
}

TEST_F(PngLoad, SixteenBitColourKeepsItsHighBytesAndIsOpaqueEverywhere) {
  EXPECT_THAT(
      loaded({.width = 2, .height = 1, .bitDepth = 16, .pixels = {10, 255, 20, 1, 30, 128, 40, 0, 50, 200, 60, 7}}),
      ElementsAre(10, 20, 30, 255, 40, 50, 60, 255));
}

TEST_F(PngLoad, SixteenBitColourWithAlphaKeepsItsHighBytes) {
  EXPECT_THAT(loaded({.width = 1,
                      .height = 1,
                      .bitDepth = 16,
                      .colour = PNG_COLOR_TYPE_RGB_ALPHA,
                      .pixels = {10, 255, 20, 1, 30, 128, 40, 9}}),
              ElementsAre(10, 20, 30, 40));
}

TEST_F(PngLoad, OneBitGreyIsBlackOrWhite) {
  EXPECT_THAT(loaded({.width = 3, .height = 1, .bitDepth = 1, .colour = PNG_COLOR_TYPE_GRAY, .pixels = {0b10100000}}),
              ElementsAre(255, 255, 255, 255, 0, 0, 0, 255, 255, 255, 255, 255));
}

TEST_F(PngLoad, TwoAndFourBitGreyReachFromBlackToWhite) {
  EXPECT_THAT(loaded({.width = 2, .height = 1, .bitDepth = 2, .colour = PNG_COLOR_TYPE_GRAY, .pixels = {0b01110000}}),
              ElementsAre(85, 85, 85, 255, 255, 255, 255, 255));
  EXPECT_THAT(loaded({.width = 2, .height = 1, .bitDepth = 4, .colour = PNG_COLOR_TYPE_GRAY, .pixels = {0x2F}}),
              ElementsAre(34, 34, 34, 255, 255, 255, 255, 255));
}

TEST_F(PngLoad, GreyOfEightAndSixteenBitsBecomesThreeEqualColours) {
  EXPECT_THAT(loaded({.width = 2, .height = 1, .colour = PNG_COLOR_TYPE_GRAY, .pixels = {9, 200}}),
              ElementsAre(9, 9, 9, 255, 200, 200, 200, 255));
  EXPECT_THAT(loaded({.width = 1, .height = 1, .bitDepth = 16, .colour = PNG_COLOR_TYPE_GRAY, .pixels = {77, 250}}),
              ElementsAre(77, 77, 77, 255));
}

TEST_F(PngLoad, GreyWithAlphaKeepsItsAlpha) {
  EXPECT_THAT(loaded({.width = 2, .height = 1, .colour = PNG_COLOR_TYPE_GRAY_ALPHA, .pixels = {9, 8, 200, 100}}),
              ElementsAre(9, 9, 9, 8, 200, 200, 200, 100));
}

TEST_F(PngLoad, AColourMarkedTransparentGetsAlphaZero) {
  const png_color_16 transparent = {.index = 0, .red = 1, .green = 2, .blue = 3, .gray = 0};
  EXPECT_THAT(loaded({.width = 2, .height = 1, .pixels = {1, 2, 3, 4, 5, 6}, .transparent = &transparent}),
              ElementsAre(1, 2, 3, 0, 4, 5, 6, 255));
}

TEST_F(PngLoad, AGreyMarkedTransparentGetsAlphaZero) {
  const png_color_16 transparent = {.index = 0, .red = 0, .green = 0, .blue = 0, .gray = 1};
  EXPECT_THAT(loaded({.width = 2,
                      .height = 1,
                      .bitDepth = 1,
                      .colour = PNG_COLOR_TYPE_GRAY,
                      .pixels = {0b10000000},
                      .transparent = &transparent}),
              ElementsAre(255, 255, 255, 0, 0, 0, 0, 255));
}

TEST_F(PngLoad, APaletteBecomesItsColours) {
  EXPECT_THAT(loaded({.width = 4,
                      .height = 1,
                      .bitDepth = 2,
                      .colour = PNG_COLOR_TYPE_PALETTE,
                      .pixels = {0b00011000},
                      .palette = {{1, 2, 3}, {4, 5, 6}, {7, 8, 9}}}),
              ElementsAre(1, 2, 3, 255, 4, 5, 6, 255, 7, 8, 9, 255, 1, 2, 3, 255));
}

TEST_F(PngLoad, APaletteKeepsItsTransparency) {
  EXPECT_THAT(loaded({.width = 3,
                      .height = 1,
                      .colour = PNG_COLOR_TYPE_PALETTE,
                      .pixels = {0, 1, 2},
                      .palette = {{1, 2, 3}, {4, 5, 6}, {7, 8, 9}},
                      .paletteAlpha = {0, 128}}),
              ElementsAre(1, 2, 3, 0, 4, 5, 6, 128, 7, 8, 9, 255));
}

TEST_F(PngLoad, AnInterlacedFileGivesTheSamePicture) {
  PngContents contents = {
      .width = 37, .height = 23, .colour = PNG_COLOR_TYPE_RGB_ALPHA, .pixels = someBytes(37 * 23 * 4)};
  contents.interlaced = true;
  EXPECT_EQ(loaded(contents), contents.pixels);
}

TEST_F(PngLoad, AMissingFileFailsAndLeavesAnEmptyRecord) {
  EXPECT_EQ(load(), -1);
  EXPECT_EQ(image_.width, 0);
  EXPECT_EQ(image_.height, 0);
  EXPECT_EQ(image_.channels, 0);
  EXPECT_THAT(image_.pixels, IsEmpty());
}

TEST_F(PngLoad, AFileOfAnotherFormatFails) {
  writeBytes(path_, someBytes(100));
  EXPECT_EQ(load(), -4);
  EXPECT_EQ(image_.width, 0);
}

TEST_F(PngLoad, AFileThatEndsInThePictureFailsWithSizeAndChannelsSetAndNoPixels) {
  writePng(path_, {.width = 40, .height = 30, .pixels = someBytes(40 * 30 * 3)});
  Bytes bytes = readBytes(path_);
  bytes.resize(bytes.size() / 2);
  writeBytes(path_, bytes);
  EXPECT_EQ(load(), -4);
  EXPECT_EQ(image_.width, 40);
  EXPECT_EQ(image_.height, 30);
  EXPECT_EQ(image_.channels, 4);
  EXPECT_THAT(image_.pixels, IsEmpty());
}

TEST_F(PngLoad, AFileWithoutItsEndChunkIsReadWhole) {
  writePng(path_, {.width = 40, .height = 30, .pixels = someBytes(40 * 30 * 3)});
  Bytes bytes = readBytes(path_);
  bytes.resize(bytes.size() - 12);
  writeBytes(path_, bytes);
  EXPECT_EQ(load(), 0);
  EXPECT_EQ(image_.pixels.size(), size_t{40 * 30 * 4});
}

TEST_F(PngLoad, ClosesTheFileAndPrintsNothingOnSuccess) {
  const int before = openFiles();
  testing::internal::CaptureStderr();
  writePng(path_, {.width = 1, .height = 1, .pixels = {1, 2, 3}});
  EXPECT_EQ(load(), 0);
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
  EXPECT_EQ(openFiles(), before);
}

TEST_F(PngLoad, ASolidPictureIsNotMistakenForAFileThatCannotHoldIt) {
  // Compresses nearly as well as anything can.
  const PngContents contents = {
      .width = 4000, .height = 4000, .bitDepth = 8, .colour = PNG_COLOR_TYPE_GRAY, .pixels = Bytes(4000 * 4000)};
  EXPECT_EQ(loaded(contents).size(), size_t{4000 * 4000 * 4});
}

}  // namespace
}  // namespace quiltor
