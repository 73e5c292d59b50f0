#include "library/pattern_search.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "library/data_folders.h"
#include "platform/testing/file_reads.h"

namespace quiltor {
namespace {

// A library "Mine*Wood" in the folder "new", which the list of all users names, and a pattern that was in "old".
class FindPattern : public testing::Test {
 protected:
  FindPattern() {
    for (const char* folder : {"old", "new", "newer"}) std::filesystem::create_directory(data_.path(folder));
    writeList("Mine*Wood*" + data_.path("new") + "\r\n");
  }

  void writeList(const std::string& text) { writeText(data_.all("libpaths.txt"), text); }
  std::string put(const std::string& name) {
    writeText(data_.path(name), "x");
    return data_.path(name);
  }
  std::string findOak(const std::string& labelAndName = "Mine*Wood") const {
    return findPattern(data_.path("old/oak.png") + "*" + labelAndName + "*");
  }

  DataFolders data_;
};

TEST_F(FindPattern, FollowsALibraryThatMoved) {
  const std::string oak = put("new/oak.png");
  EXPECT_EQ(findOak(), oak);
}

TEST_F(FindPattern, StaysWithAFileThatExistsAndDoesNotEvenReadTheList) {
  put("new/oak.png");
  const std::string oak = put("old/oak.png");
  FileReads reads(data_.all("libpaths.txt"));
  EXPECT_EQ(findOak(), oak);
  EXPECT_FALSE(reads.any());
  std::filesystem::remove(oak);
  findOak();
  EXPECT_TRUE(reads.any());
}

TEST_F(FindPattern, NeedsLabelAndNameToBeEqual) {
  put("new/oak.png");
  for (const char* other : {"mine*Wood", "Mine*Woods", "Mine*", "*Wood", "Wood*Mine"}) {
    EXPECT_EQ(findOak(other), data_.path("old/oak.png")) << other;
  }
}

TEST_F(FindPattern, TheLastLibraryOfThatNameWins) {
  put("new/oak.png");
  const std::string oak = put("newer/oak.png");
  writeList("Mine*Wood*" + data_.path("new") + "\nMine*Wood*" + data_.path("newer") + "\nMine*Stone*/else\n");
  EXPECT_EQ(findOak(), oak);
}

TEST_F(FindPattern, TheLastLibraryWinsEvenWithoutTheFile) {
  put("new/oak.png");
  writeList("Mine*Wood*" + data_.path("new") + "\nMine*Wood*" + data_.path("newer") + "\n");
  EXPECT_EQ(findOak(), data_.path("old/oak.png"));
}

TEST_F(FindPattern, ACloudLibrarysFilesAreInItsComponents) {
  std::filesystem::create_directories(data_.path("new/components"));
  const std::string oak = put("new/components/oak.png");
  writeList("CLOUD*Wood*" + data_.path("new/manifest") + "\r\n");
  EXPECT_EQ(findOak("CLOUD*Wood"), oak);
}

TEST_F(FindPattern, APathOfAnotherSystemIsFoundByItsFileName) {
  put("new/oak.png");
  EXPECT_EQ(findPattern("C:\\Patterns\\oak.png*Mine*Wood*"), data_.path("new") + "\\oak.png");
  EXPECT_EQ(findPattern("oak.png*Mine*Wood*"), data_.path("new/oak.png"));
}

TEST_F(FindPattern, TheUsersListCountsOnlyWhereThereIsNoOther) {
  put("new/oak.png");
  const std::string oak = put("newer/oak.png");
  writeText(data_.user("libpaths.txt"), "Mine*Wood*" + data_.path("newer") + "\n");
  EXPECT_EQ(findOak(), data_.path("new/oak.png"));
  std::filesystem::remove(data_.all("libpaths.txt"));
  EXPECT_EQ(findOak(), oak);
}

TEST_F(FindPattern, NothingIsLookedUpWithoutAList) {
  put("new/oak.png");
  std::filesystem::remove(data_.all("libpaths.txt"));
  EXPECT_EQ(findOak(), data_.path("old/oak.png"));
}

TEST_F(FindPattern, AnEmptyReferenceAndOneWithoutAPathAreNowhere) {
  writeList("**" + data_.path("new") + "\nMine*Wood*" + data_.path("new") + "\n");
  EXPECT_EQ(findPattern(""), "");
  EXPECT_EQ(findPattern("*Mine*Wood*"), "");
}

}  // namespace
}  // namespace quiltor
