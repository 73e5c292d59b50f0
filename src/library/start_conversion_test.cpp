#include <dlfcn.h>

#include <chrono>
#include <thread>

#include "library/conversion_test.h"

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

  static size_t threads() {
    size_t count = 0;
    for ([[maybe_unused]] const auto& entry : fs::directory_iterator("/proc/self/task")) ++count;
    return count;
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
    const size_t before = threads();
    startLibraryConversion();
    EXPECT_EQ(threads(), before);
  }
  EXPECT_THAT(resultNames(), IsEmpty());
}

TEST_F(StartConversion, AModuleThatStartedNoneIsUnloaded) {
  void* const module = dlopen(UNLOAD_MODULE, RTLD_NOW | RTLD_LOCAL);
  ASSERT_NE(module, nullptr) << dlerror();
  dlclose(module);
  EXPECT_EQ(dlopen(UNLOAD_MODULE, RTLD_NOW | RTLD_NOLOAD), nullptr);
}

TEST_F(StartConversion, GoesOnWhenTheHostUnloadsItsModuleInTheMiddle) {
  constexpr int kPictures = 60;
  writeList();
  writePictures(kPictures);
  void* const module = dlopen(UNLOAD_MODULE, RTLD_NOW | RTLD_LOCAL);
  ASSERT_NE(module, nullptr) << dlerror();
  const auto start = reinterpret_cast<void (*)()>(dlsym(module, "startConversionOfTheModule"));
  ASSERT_NE(start, nullptr);
  start();
  while (thumbnails() == 0) std::this_thread::yield();
  ASSERT_EQ(dlclose(module), 0);
  EXPECT_LT(thumbnails(), kPictures) << "it was unloaded too late to show anything";
  EXPECT_TRUE(comesTo(kPictures));
}

}  // namespace
}  // namespace quiltor
