#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <zlib.h>

#include <algorithm>
#include <filesystem>
#include <random>

#include "formats/image_file.h"
#include "formats/test_pictures.h"
#include "platform/open_files.h"
#include "platform/scratch_folder.h"
#include "platform/testing/small_disk.h"

namespace quiltor {
namespace {

using testing::Each;
using testing::ElementsAre;
using testing::ElementsAreArray;

// What a PNG file's header says.
struct Header {
  int bitDepth;
  int colour;
  int interlace;
};

class PngSave : public testing::Test {
 protected:
  int32_t save(const PatternImage& image) { return SavePngImage(path_, image); }

  Header header() const {
    const Bytes bytes = readBytes(path_);
    return bytes.size() > 28 ? Header{bytes[24], bytes[25], bytes[28]} : Header{};
  }

  PatternImage loaded() const {
    PatternImage image;
    EXPECT_EQ(LoadPngImage(path_, image), 0);
    return image;
  }

  // The compressed data of a file with one data chunk.
  Bytes compressed() const {
    const Bytes bytes = readBytes(path_);
    const Bytes name = {'I', 'D', 'A', 'T'};
    const auto at = std::search(bytes.begin(), bytes.end(), name.begin(), name.end());
    const size_t length = size_t{at[-2]} << 8 | at[-1];
    return Bytes(at + 4, at + 4 + static_cast<std::ptrdiff_t>(length));
  }

  ScratchFolder scratch_;
  std::string path_ = scratch_.path("picture.png");
};

TEST_F(PngSave, ThreeChannelsBecomeAnRgbFile) {
  ASSERT_EQ(save({2, 1, 3, {1, 2, 3, 4, 5, 6}}), 0);
  EXPECT_EQ(header().bitDepth, 8);
  EXPECT_EQ(header().colour, PNG_COLOR_TYPE_RGB);
  EXPECT_EQ(header().interlace, PNG_INTERLACE_NONE);
  EXPECT_THAT(loaded().pixels, ElementsAre(1, 2, 3, 255, 4, 5, 6, 255));
}

TEST_F(PngSave, FourChannelsBecomeAnRgbaFile) {
  ASSERT_EQ(save({1, 2, 4, {1, 2, 3, 4, 5, 6, 7, 8}}), 0);
  EXPECT_EQ(header().bitDepth, 8);
  EXPECT_EQ(header().colour, PNG_COLOR_TYPE_RGB_ALPHA);
  EXPECT_THAT(loaded().pixels, ElementsAre(1, 2, 3, 4, 5, 6, 7, 8));
}

TEST_F(PngSave, OneChannelBecomesAnRgbaFileSteppedByTheWidth) {
  // As a greyscale JPEG fills the record: three bytes per pixel under one channel.
  const Bytes pixels = someBytes(5 * 4 * 3);
  ASSERT_EQ(save({5, 4, 1, pixels}), 0);
  EXPECT_EQ(header().colour, PNG_COLOR_TYPE_RGB_ALPHA);
  const Bytes written = loaded().pixels;
  ASSERT_EQ(written.size(), size_t{5 * 4 * 4});
  for (std::ptrdiff_t y = 0; y < 4; ++y) {
    const Bytes row(pixels.begin() + y * 5, pixels.begin() + y * 5 + 20);
    EXPECT_THAT(Bytes(written.begin() + y * 20, written.begin() + y * 20 + 20), ElementsAreArray(row)) << "row " << y;
  }
}

TEST_F(PngSave, RowsOfOneChannelThatReachPastTheArrayEndInZeros) {
  ASSERT_EQ(save({2, 2, 1, {1, 2, 3, 4}}), 0);
  EXPECT_THAT(loaded().pixels, ElementsAre(1, 2, 3, 4, 0, 0, 0, 0, 3, 4, 0, 0, 0, 0, 0, 0));
}

TEST_F(PngSave, AnEmptyPictureFailsAndCreatesNoFile) {
  EXPECT_EQ(save({0, 5, 4, {}}), -2);
  EXPECT_EQ(save({5, 0, 4, {}}), -2);
  EXPECT_EQ(save({5, 5, 0, {}}), -2);
  EXPECT_EQ(save({}), -2);
  EXPECT_FALSE(std::filesystem::exists(path_));
}

TEST_F(PngSave, ASizeThatVanishesInThirtyTwoBitsCountsAsEmpty) {
  EXPECT_EQ(save({65536, 65536, 4, {}}), -2);
  EXPECT_FALSE(std::filesystem::exists(path_));
}

TEST_F(PngSave, AnArrayThatIsTooShortFailsAndLeavesTheFileAlone) {
  writeBytes(path_, {'k', 'e', 'p', 't'});
  EXPECT_EQ(save({4, 4, 4, Bytes(63)}), -5);
  EXPECT_EQ(save({-4, 4, 4, Bytes(64)}), -5);
  EXPECT_EQ(save({-4, -4, 4, Bytes(64)}), -5);
  EXPECT_THAT(readBytes(path_), ElementsAre('k', 'e', 'p', 't'));
}

TEST_F(PngSave, AFileThatCannotBeCreatedFails) {
  EXPECT_EQ(SavePngImage(scratch_.path("missing/picture.png"), {1, 1, 3, {1, 2, 3}}), -1);
  EXPECT_EQ(SavePngImage(scratch_.path(), {1, 1, 3, {1, 2, 3}}), -1);
}

TEST_F(PngSave, ReplacesALongerFile) {
  writeBytes(path_, Bytes(5000));
  ASSERT_EQ(save({1, 1, 3, {1, 2, 3}}), 0);
  EXPECT_LT(std::filesystem::file_size(path_), 200u);
}

TEST_F(PngSave, CompressesAsWellAsItCanAndDoesNotFilterRows) {
  // A slope, on which an encoder that may choose its filters takes another than none.
  PatternImage image = {64, 8, 3, {}};
  for (int i = 0; i < 64 * 8 * 3; ++i) image.pixels.push_back(static_cast<uint8_t>(i));
  ASSERT_EQ(save(image), 0);
  const Bytes data = compressed();
  EXPECT_EQ(data[1] >> 6, 3) << "the level that the compressed data name";
  Bytes rows(8 * (64 * 3 + 1));
  auto size = static_cast<uLongf>(rows.size());
  ASSERT_EQ(uncompress(rows.data(), &size, data.data(), static_cast<uLong>(data.size())), Z_OK);
  for (size_t y = 0; y < 8; ++y) EXPECT_EQ(rows[y * (64 * 3 + 1)], 0) << "the filter of row " << y;
}

TEST_F(PngSave, ClosesTheFileAndPrintsNothing) {
  const int before = openFiles();
  testing::internal::CaptureStderr();
  EXPECT_EQ(save({1, 1, 3, {1, 2, 3}}), 0);
  EXPECT_EQ(save({0, 1, 3, {}}), -2);
  EXPECT_EQ(SavePngImage(scratch_.path("missing/picture.png"), {1, 1, 3, {1, 2, 3}}), -1);
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
  EXPECT_EQ(openFiles(), before);
}

TEST_F(PngSave, AFullDiskFails) {
  for (const int64_t room : {0, 20, 60}) {
    const SmallDisk disk(room);
    EXPECT_EQ(save({1, 1, 3, {1, 2, 3}}), -5) << room;
  }
  EXPECT_EQ(save({1, 1, 3, {1, 2, 3}}), 0);
}

TEST_F(PngSave, WhatIsSavedLoadsAgainForAnySize) {
  constexpr unsigned kSeed = 20240607;
  std::mt19937 random(kSeed);
  for (int turn = 0; turn < 100; ++turn) {
    PatternImage image = {static_cast<int32_t>(1 + random() % 70), static_cast<int32_t>(1 + random() % 70), 4, {}};
    image.pixels.resize(static_cast<size_t>(image.width) * static_cast<size_t>(image.height) * 4);
    std::generate(image.pixels.begin(), image.pixels.end(), [&] { return static_cast<uint8_t>(random()); });
    ASSERT_EQ(save(image), 0);
    const PatternImage back = loaded();
    ASSERT_EQ(back.width, image.width);
    ASSERT_EQ(back.height, image.height);
    ASSERT_EQ(back.pixels, image.pixels) << image.width << " by " << image.height << ", turn " << turn;
  }
}

}  // namespace
}  // namespace quiltor
