#include "library/unfinished_png.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <utility>

#include "formats/image_file.h"
#include "library/data_folders.h"
#include "library/files/folders.h"
#include "platform/open_files.h"
#include "platform/testing/test_process.h"

namespace quiltor {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

const PatternImage kImage = {1, 1, 3, {10, 20, 30}};

// The word is the picture's path.
const ProcessWork kLeaveUnfinished("leave a picture unfinished", [](const std::vector<std::string>& words) -> int {
  UnfinishedPng file(words[0]);
  std::_Exit(file.write(kImage));
});

class UnfinishedPngTest : public testing::Test {
 protected:
  std::vector<std::string> names() const {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(scratch_.path()))
      names.push_back(entry.path().filename().string());
    return names;
  }

  ScratchFolder scratch_;
  const std::string path_ = scratch_.path("a.png");
};

TEST_F(UnfinishedPngTest, GetsItsNameWhenItIsFinished) {
  UnfinishedPng file(path_);
  EXPECT_EQ(file.write(kImage), 0);
  EXPECT_FALSE(std::filesystem::exists(path_));
  EXPECT_EQ(file.finish(), 0);
  EXPECT_THAT(names(), ElementsAre("a.png"));
  PatternImage loaded;
  EXPECT_EQ(LoadPngImage(path_, loaded), 0);
  EXPECT_THAT(loaded.pixels, ElementsAre(10, 20, 30, 255));
}

TEST_F(UnfinishedPngTest, TakesThePlaceOfAFileOfItsName) {
  writeText(path_, "old");
  UnfinishedPng file(path_);
  EXPECT_EQ(file.write(kImage), 0);
  EXPECT_EQ(std::filesystem::file_size(path_), 3u);
  EXPECT_EQ(file.finish(), 0);
  EXPECT_GT(std::filesystem::file_size(path_), 3u);
}

TEST_F(UnfinishedPngTest, IsNotListed) {
  UnfinishedPng file(path_);
  EXPECT_EQ(file.write(kImage), 0);
  EXPECT_THAT(names(), SizeIs(1));
  std::vector<std::string> listed;
  EXPECT_EQ(listFolder(listed, scratch_.path(), {.recurse = true, .excludeWords = {".cache"}}), 0);
  EXPECT_THAT(listed, IsEmpty());
  EXPECT_EQ(std::filesystem::path(names()[0]).extension(), std::filesystem::path(names()[0]).filename().extension());
  for (const char* ending : {".png", ".jpg", ".jpeg", ".pat"}) EXPECT_FALSE(names()[0].ends_with(ending));
}

TEST_F(UnfinishedPngTest, IsGoneWhenItIsNotFinished) {
  {
    UnfinishedPng file(path_);
    EXPECT_EQ(file.write(kImage), 0);
    const UnfinishedPng moved = std::move(file);
    EXPECT_THAT(names(), SizeIs(1));
  }
  EXPECT_THAT(names(), IsEmpty());
}

TEST_F(UnfinishedPngTest, HandsOnWhyItCannotBeWritten) {
  UnfinishedPng file(path_);
  EXPECT_EQ(file.write({}), -2);
  UnfinishedPng nowhere(scratch_.path("missing/a.png"));
  EXPECT_EQ(nowhere.write(kImage), -1);
}

TEST_F(UnfinishedPngTest, GivesItsRoomBackWhenItCannotBeWritten) {
  const int before = openFiles();
  {
    UnfinishedPng file(path_);
    // Wider than the encoder writes.
    EXPECT_EQ(file.write({1000001, 1, 3, std::vector<uint8_t>(3000003)}), -5);
  }
  EXPECT_EQ(openFiles(), before);
  EXPECT_THAT(names(), IsEmpty());
}

TEST_F(UnfinishedPngTest, CannotBeFinishedWhereAFolderHasItsName) {
  std::filesystem::create_directory(path_);
  {
    UnfinishedPng file(path_);
    EXPECT_EQ(file.write(kImage), 0);
    EXPECT_EQ(file.finish(), -1);
  }
  EXPECT_THAT(names(), ElementsAre("a.png"));
}

TEST_F(UnfinishedPngTest, OfAProcessThatEndedIsDeletedAndNothingElse) {
  ASSERT_EQ(TestProcess(kLeaveUnfinished, {path_})->end(), 0);
  EXPECT_THAT(names(), SizeIs(1));
  UnfinishedPng file(path_);
  EXPECT_EQ(file.write(kImage), 0);
  for (const char* name : {".cache-", ".cache-notes", ".cache-99999999999999999999-1", "old.cache-1-1", "b.png"}) {
    writeText(scratch_.path(name), "x");
  }
  EXPECT_THAT(names(), SizeIs(7));
  removeUnfinished(scratch_.path());
  EXPECT_THAT(names(), SizeIs(6));
  EXPECT_EQ(file.finish(), 0);
}

}  // namespace
}  // namespace quiltor
