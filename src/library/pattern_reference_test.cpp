#include "library/pattern_reference.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <mutex>
#include <thread>

#include "formats/image_file.h"
#include "formats/test_pictures.h"
#include "host/host_error.h"
#include "host/render_mutex.h"
#include "hostapi/suites_pf.h"
#include "library/data_folders.h"
#include "platform/scratch_folder.h"
#include "platform/testing/file_reads.h"

namespace quiltor {
namespace {

using testing::Each;
using testing::ElementsAre;

// A host that offers the advanced application suite, or nothing.
struct FakeHost {
  static inline bool offersSuite;
  static inline int acquired;
  static inline int released;
  static inline int redraws;
  static inline int heldAtRedraw;

  static SPErr acquire(const char* name, int32_t version, const void** table) {
    if (!offersSuite || std::strcmp(name, "PF AE Adv App Suite") != 0 || version != 1) return kSPSuiteNotFoundError;
    static constexpr PF_AdvAppSuite1 kSuite = {{}, redraw, {}};
    *table = &kSuite;
    ++acquired;
    return kSPNoError;
  }
  static SPErr release(const char*, int32_t) {
    ++released;
    return kSPNoError;
  }
  static PF_Err redraw() {
    heldAtRedraw += acquired - released;
    ++redraws;
    return PF_Err_NONE;
  }
};

class PatternReference : public testing::Test {
 protected:
  PatternReference() {
    FakeHost::offersSuite = true;
    FakeHost::acquired = FakeHost::released = FakeHost::redraws = FakeHost::heldAtRedraw = 0;
    basic_.AcquireSuite = FakeHost::acquire;
    basic_.ReleaseSuite = FakeHost::release;
    in_.pica_basicP = &basic_;
    instance_.patternImage = &image_;
    instance_.previewImage = &preview_;
  }

  // Loads a reference and gives what is left of it.
  std::string load(std::string reference, Redraw redraw = Redraw::No) {
    loadPatternReference(instance_, reference, in_, redraw);
    return reference;
  }

  std::string referenceTo(const std::string& path) const { return path + "*Label*Name*"; }

  // The four bytes of a preview pixel.
  Bytes previewPixel(int column, int row) const {
    const auto begin = preview_.begin() + (row * kPreviewSize + column) * 4;
    return Bytes(begin, begin + 4);
  }

  void writeRgb(const std::string& path) { writePng(path, {.width = 1, .height = 1, .pixels = {10, 20, 30}}); }
  void writeWhiteJpeg(const std::string& path) {
    writeJpeg(path, {.width = 8, .height = 8, .pixels = Bytes(192, 255)});
  }

  bool holdsPlaceholder() const {
    return image_.width == 50 && image_.height == 50 && image_.channels == 3 && image_.pixels.size() == 7500;
  }

  ScratchFolder scratch_;
  SPBasicSuite basic_ = {};
  PF_InData in_ = {};
  PatternImage image_;
  std::vector<uint8_t> preview_;
  SequenceData instance_ = {};
};

TEST_F(PatternReference, LoadsTheFileAndIsLeftWithItsPath) {
  const std::string path = scratch_.path("pattern.png");
  writeRgb(path);
  EXPECT_EQ(load(referenceTo(path)), path);
  EXPECT_EQ(image_.width, 1);
  EXPECT_THAT(image_.pixels, ElementsAre(10, 20, 30, 255));
}

TEST_F(PatternReference, APathWithoutLabelAndNameIsEnough) {
  const std::string path = scratch_.path("pattern.png");
  writeRgb(path);
  EXPECT_EQ(load(path), path);
  EXPECT_THAT(image_.pixels, ElementsAre(10, 20, 30, 255));
}

TEST_F(PatternReference, APatternThatMovedWithItsLibraryIsLoadedFromThereAndLeavesThatPath) {
  const DataFolders data;
  writeRgb(data.path("moved.png"));
  writeText(data.all("libpaths.txt"), "Label*Name*" + data.path("") + "\r\n");
  EXPECT_EQ(load(referenceTo(scratch_.path("moved.png"))), data.path("") + "/moved.png");
  EXPECT_THAT(image_.pixels, ElementsAre(10, 20, 30, 255));
}

TEST_F(PatternReference, AMissingFileLeavesAnEmptyPictureAndAWhitePreview) {
  const std::string path = scratch_.path("missing.png");
  image_ = {1, 1, 3, {1, 2, 3}};
  EXPECT_EQ(load(referenceTo(path)), path);
  EXPECT_EQ(image_.width, 0);
  EXPECT_EQ(image_.channels, 0);
  EXPECT_TRUE(image_.pixels.empty());
  EXPECT_EQ(preview_.size(), 10000u);
  EXPECT_THAT(preview_, Each(255));
}

TEST_F(PatternReference, AnEmptyReferenceGivesThePlaceholder) {
  EXPECT_EQ(load(""), "");
  ASSERT_TRUE(holdsPlaceholder());
  for (int row = 0; row < 50; ++row) {
    for (int column = 0; column < 50; ++column) {
      const uint8_t grey = (row < 25) == (column < 25) ? 255 : 0;
      const auto pixel = image_.pixels.begin() + (row * 50 + column) * 3;
      ASSERT_THAT(Bytes(pixel, pixel + 3), Each(grey)) << column << ", " << row;
    }
  }
}

TEST_F(PatternReference, AJpegIsKnownByItsExtensionInAnySpelling) {
  for (const char* name : {"a.jpeg", "a.jpg", "A.JPG", "a.JPeG", "png.jp"}) {
    writeWhiteJpeg(scratch_.path(name));
    load(scratch_.path(name));
    EXPECT_EQ(image_.width, 8) << name;
    EXPECT_EQ(image_.channels, 3) << name;
  }
}

TEST_F(PatternReference, APngIsKnownByItsExtensionInAnySpelling) {
  for (const char* name : {"a.png", "A.PNG", "jp.png"}) {
    writeRgb(scratch_.path(name));
    load(scratch_.path(name));
    EXPECT_EQ(image_.width, 1) << name;
  }
}

TEST_F(PatternReference, AnyOtherExtensionAndNoneGiveThePlaceholder) {
  for (const char* name : {"a.pat", "noextension", "a.png.txt"}) {
    writeRgb(scratch_.path(name));
    image_ = {};
    load(scratch_.path(name));
    EXPECT_TRUE(holdsPlaceholder()) << name;
  }
}

TEST_F(PatternReference, WithoutADotTheWholePathIsTheExtension) {
  image_ = {1, 1, 3, {1, 2, 3}};
  // The JPEG reader finds no such file.
  load("JPfolder-of-nothing");
  EXPECT_EQ(image_.channels, 0);
  load(".jpfolder-of-nothing");
  EXPECT_EQ(image_.channels, 0);
}

TEST_F(PatternReference, ThePreviewHoldsBlueGreenRedAlpha) {
  const std::string path = scratch_.path("pattern.png");
  writePng(path, {.width = 1, .height = 1, .colour = PNG_COLOR_TYPE_RGB_ALPHA, .pixels = {10, 20, 30, 40}});
  load(path);
  EXPECT_EQ(preview_.size(), 10000u);
  EXPECT_THAT(previewPixel(0, 0), ElementsAre(30, 20, 10, 40));
  EXPECT_THAT(previewPixel(49, 49), ElementsAre(30, 20, 10, 40));
}

TEST_F(PatternReference, ThePreviewTakesEveryFiftiethOfTheWay) {
  const std::string path = scratch_.path("pattern.png");
  PngContents contents = {.width = 100, .height = 75, .colour = PNG_COLOR_TYPE_RGB_ALPHA, .pixels = {}};
  for (uint8_t y = 0; y < 75; ++y) {
    for (uint8_t x = 0; x < 100; ++x) contents.pixels.insert(contents.pixels.end(), {x, y, 0, 255});
  }
  writePng(path, contents);
  load(path);
  for (int row = 0; row < 50; ++row) {
    for (int column = 0; column < 50; ++column) {
      ASSERT_THAT(previewPixel(column, row), ElementsAre(0, row * 3 / 2, column * 2, 255)) << column << ", " << row;
    }
  }
}

TEST_F(PatternReference, AlphaOfAThreeChannelPreviewIsTheNextPixelsRed) {
  const std::string path = scratch_.path("pattern.jpg");
  JpegContents contents = {.width = 50, .height = 50, .pixels = {}};
  for (int i = 0; i < 2500; ++i) contents.pixels.insert(contents.pixels.end(), 3, static_cast<uint8_t>(i % 50 * 5));
  writeJpeg(path, contents);
  load(path);
  for (int pixel = 0; pixel < 2499; ++pixel) {
    const size_t at = static_cast<size_t>(pixel);
    ASSERT_EQ(preview_[at * 4 + 2], image_.pixels[at * 3]) << "red of pixel " << pixel;
    ASSERT_EQ(preview_[at * 4 + 3], image_.pixels[at * 3 + 3]) << "alpha of pixel " << pixel;
  }
  EXPECT_EQ(preview_.back(), 255) << "there is no pixel behind the last one";
}

TEST_F(PatternReference, ThePreviewOfAGreyJpegIsSteppedByItsOneChannel) {
  const std::string path = scratch_.path("grey.jpg");
  writeJpeg(path, {.width = 50, .height = 50, .components = 1, .colour = JCS_GRAYSCALE, .pixels = someBytes(2500)});
  load(path);
  for (int pixel = 0; pixel < 2500; ++pixel) {
    const auto at = image_.pixels.begin() + pixel;
    ASSERT_THAT(previewPixel(pixel % 50, pixel / 50), ElementsAre(at[2], at[1], at[0], at[3])) << "pixel " << pixel;
  }
}

TEST_F(PatternReference, APictureThatFailedHalfWayHasAWhitePreview) {
  const std::string path = scratch_.path("half.png");
  writePng(path, {.width = 40, .height = 30, .pixels = someBytes(40 * 30 * 3)});
  Bytes bytes = readBytes(path);
  bytes.resize(bytes.size() / 2);
  writeBytes(path, bytes);
  load(path);
  EXPECT_EQ(image_.width, 40);
  EXPECT_TRUE(image_.pixels.empty());
  EXPECT_THAT(preview_, Each(255));
}

TEST_F(PatternReference, AcquiresAndReleasesTheHostsSuiteAndCallsNothing) {
  load("");
  EXPECT_EQ(FakeHost::acquired, 1);
  EXPECT_EQ(FakeHost::released, 1);
  EXPECT_EQ(FakeHost::redraws, 0);
}

TEST_F(PatternReference, HasTheHostRedrawOnlyWhenAsked) {
  load("", Redraw::Yes);
  EXPECT_EQ(FakeHost::redraws, 1);
  EXPECT_EQ(FakeHost::heldAtRedraw, 1);
  EXPECT_EQ(FakeHost::released, 1);
}

TEST_F(PatternReference, WithoutTheHostsSuiteThePictureIsLoadedAndTheErrorThrown) {
  FakeHost::offersSuite = false;
  const std::string path = scratch_.path("pattern.png");
  writeRgb(path);
  std::string reference = referenceTo(path);
  HostErr thrown = PF_Err_NONE;
  try {
    loadPatternReference(instance_, reference, in_, Redraw::Yes);
  } catch (HostErr code) {
    thrown = code;
  }
  EXPECT_EQ(thrown, 516);
  EXPECT_EQ(reference, path);
  EXPECT_EQ(image_.width, 1);
  EXPECT_EQ(FakeHost::released, 0);
}

TEST_F(PatternReference, ReadsTheFileBeforeItWaitsForARender) {
  const std::string path = scratch_.path("picture.png");
  writeRgb(path);
  FileReads reads(path);
  bool wasRead = false;
  std::thread loading;
  {
    const std::lock_guard lock(renderMutex());
    loading = std::thread([&] { load(path); });
    for (int turn = 0; turn < 5000 && !wasRead; ++turn) {
      std::this_thread::sleep_for(std::chrono::milliseconds(1));
      wasRead = reads.any();
    }
  }
  loading.join();
  EXPECT_TRUE(wasRead);
}

TEST_F(PatternReference, ExchangesThePicturesBetweenRenders) {
  const std::string black = scratch_.path("black.png");
  const std::string white = scratch_.path("white.png");
  writePng(black, {.width = 30, .height = 30, .pixels = Bytes(2700, 0)});
  writePng(white, {.width = 60, .height = 60, .pixels = Bytes(10800, 255)});
  load(black);
  std::atomic<bool> finished = false;
  std::thread clicking([&] {
    for (int turn = 0; turn < 500; ++turn) load(turn % 2 ? black : white);
    finished = true;
  });
  int torn = 0;
  while (!finished) {
    const std::lock_guard lock(renderMutex());
    const bool isWhite = image_.width == 60;
    std::this_thread::yield();
    const bool whole = image_.width == (isWhite ? 60 : 30) && image_.pixels.size() == (isWhite ? 14400u : 3600u) &&
                       image_.pixels.front() == (isWhite ? 255 : 0) && preview_.front() == (isWhite ? 255 : 0);
    torn += !whole;
  }
  clicking.join();
  EXPECT_EQ(torn, 0);
}

}  // namespace
}  // namespace quiltor
