#include <chrono>
#include <thread>

#include "library/conversion_test.h"
#include "platform/test_library.h"

namespace quiltor {
namespace {

namespace fs = std::filesystem;
using testing::IsEmpty;

class StartConversion : public ConversionTest {
 protected:
  void writeList() { writeText(data_.all("libpaths.txt"), "Mine**" + library() + "\r\n"); }

  void writePictures(int count) {
    for (int i = 0; i < count; ++i) {
      writePng(library(std::to_string(i) + ".png"), {.width = 300, .height = 300, .pixels = someBytes(270000)});
    }
  }

  // The thumbnails that have their names.
  int thumbnails() const {
    int count = 0;
    if (!fs::exists(data_.all(".cache"))) return count;
    for (const auto& entry : fs::directory_iterator(data_.all(".cache"))) {
      count += entry.path().extension() == ".png";
    }
    return count;
  }

  bool comesTo(int count) const {
    for (int turn = 0; turn < 3000 && thumbnails() < count; ++turn) {
      std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
    return thumbnails() == count;
  }
};

TEST_F(StartConversion, ConvertsOnAThreadOfItsOwn) {
  writeList();
  writePictures(20);
  const CapturedOutput names(data_.path("names"));
  startLibraryConversion();
  EXPECT_LT(thumbnails(), 20) << "it should have returned at once";
  EXPECT_TRUE(comesTo(20));
}

TEST_F(StartConversion, TakesThePatternsOfTheSettingsFoldersToo) {
  writeList();
  fs::create_directory(data_.path("more"));
  writeGreyPatterns(data_.path("more/Wood.pat"), 1);
  writeText(data_.all("config.txt"), "addFolder1: " + data_.path("more") + "\r\n");
  writePictures(1);
  const CapturedOutput names(data_.path("names"));
  startLibraryConversion();
  ASSERT_TRUE(comesTo(1));
  EXPECT_TRUE(fs::exists(converted("Wood/Wood_00.png")));
}

TEST_F(StartConversion, StartsNothingWithoutAListOfLibraries) {
  writeGreyPatterns(library("Wood.pat"), 1);
  writeText(data_.all("config.txt"), "baseFolder: " + library() + "\r\n");
  for (const bool emptyList : {false, true}) {
    if (emptyList) writeText(data_.all("libpaths.txt"), "\n");
    const size_t before = threadCount();
    startLibraryConversion();
    EXPECT_EQ(threadCount(), before);
  }
  EXPECT_THAT(resultNames(), IsEmpty());
}

TEST_F(StartConversion, AModuleThatStartedNoneIsUnloaded) {
  TestLibrary module(UNLOAD_MODULE);
  ASSERT_TRUE(module.isLoaded());
  EXPECT_TRUE(TestLibrary::isInMemory(UNLOAD_MODULE));
  module.unload();
  EXPECT_FALSE(TestLibrary::isInMemory(UNLOAD_MODULE));
}

TEST_F(StartConversion, GoesOnWhenTheHostUnloadsItsModuleInTheMiddle) {
  constexpr int kPictures = 60;
  writeList();
  writePictures(kPictures);
  TestLibrary module(UNLOAD_MODULE);
  ASSERT_TRUE(module.isLoaded());
  const auto start = reinterpret_cast<void (*)()>(module.symbol("startConversionOfTheModule"));
  ASSERT_NE(start, nullptr);
  start();
  while (thumbnails() == 0) std::this_thread::yield();
  ASSERT_TRUE(module.unload());
  EXPECT_LT(thumbnails(), kPictures) << "it was unloaded too late to show anything";
  EXPECT_TRUE(comesTo(kPictures));
}

}  // namespace
}  // namespace quiltor
