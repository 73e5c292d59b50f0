#include "standalone/host/picture_file.h"
#include "base/utf8_path.h"

#include <gtest/gtest.h>

#include <chrono>
#include <fstream>
#include <iterator>
#include <string>
#include <thread>

// The library's header needs the standard streams before it.
#include <cstdio>

#include <jpeglib.h>

#include "standalone/host/testing/sample_effect.h"

namespace quiltor::standalone {
namespace {

struct PictureFile : testing::Test {
  std::filesystem::path folder =
      std::filesystem::path(testing::TempDir()) /
      ("quiltor-pictures-" + std::string(testing::UnitTest::GetInstance()->current_test_info()->name()));
  void SetUp() override {
    std::filesystem::remove_all(folder);
    std::filesystem::create_directories(folder);
  }
  void TearDown() override { std::filesystem::remove_all(folder); }

  std::filesystem::path write(const std::string& name, const std::string& bytes) {
    std::ofstream(folder / name, std::ios::binary) << bytes;
    return folder / name;
  }
  std::string whyUnreadable(const std::filesystem::path& path) {
    try {
      static_cast<void>(readPicture(path, WorldFormat::Argb8));
    } catch (const PictureError& error) {
      return error.what();
    }
    return "";
  }
};

std::string bytesOf(const std::filesystem::path& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

TEST_F(PictureFile, EightBitPicturesComeBackByteForByte) {
  const World world = samplePicture(WorldFormat::Argb8, 13, 7);
  writePng(folder / "a.png", world);
  EXPECT_EQ(readPicture(folder / "a.png", WorldFormat::Argb8).packed(), world.packed());
}

TEST_F(PictureFile, SixteenBitPicturesComeBackInTheHostsSteps) {
  World world(WorldFormat::Argb16, 256, 129);
  for (int y = 0; y < 129; ++y) {
    for (int x = 0; x < 256; ++x) world.set(x, y, {(y * 256 + x) / 32768.0, x / 255.0, 0, 1});
  }
  writePng(folder / "a.png", world);
  EXPECT_EQ(readPicture(folder / "a.png", WorldFormat::Argb16).packed(), world.packed());
}

TEST_F(PictureFile, FloatIsClampedAndWrittenInSixteenBits) {
  World world(WorldFormat::ArgbFloat, 1, 1);
  world.set(0, 0, {2, -1, 0.25, 1});
  writePng(folder / "a.png", world);
  const World back = readPicture(folder / "a.png", WorldFormat::ArgbFloat);
  EXPECT_EQ(back.at(0, 0).r, 1);
  EXPECT_EQ(back.at(0, 0).g, 0);
  EXPECT_NEAR(back.at(0, 0).b, 0.25, 1.0 / 65535);
}

TEST_F(PictureFile, JpegPicturesAreOpaque) {
  const std::filesystem::path path = folder / "a.jpg";
  std::FILE* file = std::fopen(path.string().c_str(), "wb");
  jpeg_error_mgr errors;
  jpeg_compress_struct writer{};
  writer.err = jpeg_std_error(&errors);
  jpeg_create_compress(&writer);
  jpeg_stdio_dest(&writer, file);
  writer.image_width = 16;
  writer.image_height = 8;
  writer.input_components = 3;
  writer.in_color_space = JCS_RGB;
  jpeg_set_defaults(&writer);
  jpeg_set_quality(&writer, 100, TRUE);
  jpeg_start_compress(&writer, TRUE);
  std::vector<unsigned char> row;
  for (int x = 0; x < 16; ++x) row.insert(row.end(), {200, 100, 50});
  unsigned char* rows[] = {row.data()};
  for (int y = 0; y < 8; ++y) jpeg_write_scanlines(&writer, rows, 1);
  jpeg_finish_compress(&writer);
  jpeg_destroy_compress(&writer);
  std::fclose(file);

  const World world = readPicture(path, WorldFormat::Argb8);
  EXPECT_EQ(world.width(), 16);
  EXPECT_EQ(world.height(), 8);
  EXPECT_NEAR(world.at(15, 7).r, 200 / 255.0, 0.02);
  EXPECT_NEAR(world.at(15, 7).b, 50 / 255.0, 0.02);
  EXPECT_EQ(world.at(15, 7).a, 1);

  write("cut.jpg", bytesOf(path).substr(0, 200));
  EXPECT_NE(whyUnreadable(folder / "cut.jpg"), "");
}

TEST_F(PictureFile, AnUnreadableFileIsNamedInOneLine) {
  for (const auto& path : {folder / "none.png", folder, write("text.png", "hello"), write("empty.png", "")}) {
    const std::string text = whyUnreadable(path);
    EXPECT_NE(text.find(utf8FromPath(path)), std::string::npos) << text;
    EXPECT_EQ(text.find('\n'), std::string::npos) << text;
  }
}

TEST_F(PictureFile, APictureThatEndsEarlyIsRefused) {
  writePng(folder / "a.png", samplePicture(WorldFormat::Argb8, 40, 40));
  const std::string whole = bytesOf(folder / "a.png");
  for (const std::size_t size : {std::size_t{8}, std::size_t{30}, whole.size() / 2, whole.size() - 13}) {
    EXPECT_NE(whyUnreadable(write("cut.png", whole.substr(0, size))), "") << size;
  }
}

TEST_F(PictureFile, OneThatSomebodyReadsForAMomentIsReplaced) {
  writePng(folder / "a.png", samplePicture(WorldFormat::Argb8, 3, 2));
  std::ifstream reading(folder / "a.png", std::ios::binary);
  ASSERT_TRUE(reading);
  std::thread reader([&] {
    std::this_thread::sleep_for(std::chrono::milliseconds(50));
    reading.close();
  });
  EXPECT_NO_THROW(writePng(folder / "a.png", samplePicture(WorldFormat::Argb8, 5, 4)));
  reader.join();
  EXPECT_EQ(readPicture(folder / "a.png", WorldFormat::Argb8).width(), 5);
}

TEST_F(PictureFile, AFailedWriteLeavesNothing) {
  std::filesystem::create_directories(folder / "taken.png" / "inside");
  const World world = samplePicture(WorldFormat::Argb8, 4, 4);
  EXPECT_THROW(writePng(folder / "taken.png", world), PictureError);
  EXPECT_THROW(writePng(folder / "nowhere" / "a.png", world), PictureError);
  EXPECT_THROW(writePng(folder / "a.png", World(WorldFormat::Argb8, 0, 0)), PictureError);
  int entries = 0;
  for ([[maybe_unused]] const auto& entry : std::filesystem::directory_iterator(folder)) ++entries;
  EXPECT_EQ(entries, 1);
}

}  // namespace
}  // namespace quiltor::standalone
