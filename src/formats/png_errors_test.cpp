#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <zlib.h>

#include <filesystem>

#include "formats/image_file.h"
#include "formats/test_pictures.h"
#include "platform/open_files.h"
#include "platform/scratch_folder.h"

namespace {

// Whether the library's own function of that name is out of order.
bool failReadStructure = false;
bool failWriteStructure = false;
bool failInfoStructure = false;

}  // namespace

// The linker has the program call these in the place of the library's functions, which have the other names.
extern "C" {

decltype(png_create_read_struct) __real_png_create_read_struct;
decltype(png_create_write_struct) __real_png_create_write_struct;
decltype(png_create_info_struct) __real_png_create_info_struct;

png_structp __wrap_png_create_read_struct(png_const_charp version, png_voidp context, png_error_ptr error,
                                          png_error_ptr warning) {
  return failReadStructure ? nullptr : __real_png_create_read_struct(version, context, error, warning);
}

png_structp __wrap_png_create_write_struct(png_const_charp version, png_voidp context, png_error_ptr error,
                                           png_error_ptr warning) {
  return failWriteStructure ? nullptr : __real_png_create_write_struct(version, context, error, warning);
}

png_infop __wrap_png_create_info_struct(png_const_structrp png) {
  return failInfoStructure ? nullptr : __real_png_create_info_struct(png);
}

}  // extern "C"

namespace quiltor {
namespace {

class PngErrors : public testing::Test {
 protected:
  PngErrors() { writePng(path_, {.width = 40, .height = 30, .pixels = someBytes(40 * 30 * 3)}); }
  ~PngErrors() override {
    failReadStructure = false;
    failWriteStructure = false;
    failInfoStructure = false;
  }

  // Does work and gives the number of files that it left open.
  template <class Work>
  static int filesLeftOpen(Work work) {
    const int before = openFiles();
    work();
    return openFiles() - before;
  }

  int filesLeftOpenByLoad(int32_t expectedResult) {
    return filesLeftOpen([&] { EXPECT_EQ(LoadPngImage(path_, image_), expectedResult); });
  }

  ScratchFolder scratch_;
  std::string path_ = scratch_.path("picture.png");
  PatternImage image_;
};

TEST_F(PngErrors, TheReaderLeavesTheFileOpenWhenItsReadStructureCannotBeMade) {
  failReadStructure = true;
  EXPECT_EQ(filesLeftOpenByLoad(-2), 1);
  EXPECT_EQ(image_.width, 0);
}

TEST_F(PngErrors, TheReaderLeavesTheFileOpenWhenItsInfoStructureCannotBeMade) {
  failInfoStructure = true;
  EXPECT_EQ(filesLeftOpenByLoad(-3), 1);
  EXPECT_EQ(image_.width, 0);
}

TEST_F(PngErrors, TheReaderLeavesTheFileOpenWhenTheLibraryReportsAnErrorAndPrintsNothing) {
  testing::internal::CaptureStderr();
  Bytes bytes = readBytes(path_);
  bytes.resize(bytes.size() / 2);
  writeBytes(path_, bytes);
  EXPECT_EQ(filesLeftOpenByLoad(-4), 1);
  bytes.resize(20);
  writeBytes(path_, bytes);
  EXPECT_EQ(filesLeftOpenByLoad(-4), 1);
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
}

TEST_F(PngErrors, TheReaderClosesTheFileWhenItsHeaderPromisesMoreThanItCanHold) {
  // A picture of more than a thousand million bytes, whose memory is not asked for.
  Bytes bytes = readBytes(path_);
  png_save_uint_32(&bytes[16], 20000);
  png_save_uint_32(&bytes[20], 20000);
  png_save_uint_32(&bytes[29], static_cast<png_uint_32>(crc32(0, &bytes[12], 17)));
  writeBytes(path_, bytes);
  EXPECT_EQ(filesLeftOpenByLoad(-4), 0);
  EXPECT_EQ(image_.width, 20000);
  EXPECT_TRUE(image_.pixels.empty());
}

TEST_F(PngErrors, TheWriterCreatesNoFileWhenItsStructuresCannotBeMade) {
  const PatternImage image = {1, 1, 3, {1, 2, 3}};
  const std::string path = scratch_.path("written.png");
  failInfoStructure = true;
  EXPECT_EQ(filesLeftOpen([&] { EXPECT_EQ(SavePngImage(path, image), -4); }), 0);
  failWriteStructure = true;
  EXPECT_EQ(filesLeftOpen([&] { EXPECT_EQ(SavePngImage(path, image), -3); }), 0);
  EXPECT_FALSE(std::filesystem::exists(path));
}

TEST_F(PngErrors, TheWriterLeavesTheFileOpenWhenTheLibraryReportsAnErrorAndPrintsNothing) {
  testing::internal::CaptureStderr();
  // Wider than the library writes.
  const PatternImage image = {1000001, 1, 3, Bytes(3000003)};
  EXPECT_EQ(filesLeftOpen([&] { EXPECT_EQ(SavePngImage(scratch_.path("written.png"), image), -5); }), 1);
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
}

}  // namespace
}  // namespace quiltor
