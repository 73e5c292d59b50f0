#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>
#include <fstream>

#include "library/files/list_folder_test.h"
#include "platform/testing/locked.h"

namespace quiltor {
namespace {

namespace fs = std::filesystem;
using ListFolder = ListFolderTest;
using testing::ElementsAre;
using testing::IsEmpty;

TEST_F(ListFolder, WithoutRecursionPassesSubfoldersOver) {
  makeFile("a.png");
  makeFile("sub/b.png");
  EXPECT_THAT(list(), ElementsAre("a.png"));
  EXPECT_THAT(list({.foldersOnly = true}), IsEmpty());
}

TEST_F(ListFolder, GivesASubfoldersContentsBeforeItsNextSibling) {
  for (const char* name : {"1", "2/a", "2/b/c", "2/d", "3"}) makeFile(name);
  EXPECT_THAT(list({.recurse = true}), ElementsAre("1", "2/a", "2/b/c", "2/d", "3"));
  EXPECT_THAT(list({.recurse = true, .foldersOnly = true}), ElementsAre("2", "2/b"));
  EXPECT_THAT(list({.recurse = true, .namesOnly = true}), ElementsAre("1", "a", "c", "d", "3"));
  EXPECT_THAT(list({.recurse = true, .foldersOnly = true, .namesOnly = true}), ElementsAre("2", "b"));
}

TEST_F(ListFolder, EntersASubfolderThatDoesNotPassItself) {
  makeFile("plain/keep/x");
  EXPECT_THAT(list({.recurse = true, .foldersOnly = true, .includeWords = {"keep"}}), ElementsAre("plain/keep"));
}

TEST_F(ListFolder, LooksForWordsAnywhereInTheWholePathAndInAnyCase) {
  makeFile("my.pat folder/picture.png");
  makeFile("other/A.PAT");
  makeFile("other/b.png");
  EXPECT_THAT(list({.recurse = true, .includeWords = {".Pat"}}),
              ElementsAre("my.pat folder/picture.png", "other/A.PAT"));
  EXPECT_THAT(list({.recurse = true, .namesOnly = true, .includeWords = {".pat"}}), ElementsAre("A.PAT"));
}

TEST_F(ListFolder, LeavesOutWhatHoldsAnExcludedWordWhateverWasIncluded) {
  makeFile("a.png");
  makeFile(".Cache/b.png");
  EXPECT_THAT(list({.recurse = true, .includeWords = {".png"}, .excludeWords = {".cache"}}), ElementsAre("a.png"));
}

TEST_F(ListFolder, TheEmptyWordIsInEveryName) {
  makeFile("a");
  EXPECT_THAT(list({.includeWords = {"nothing like it", ""}}), ElementsAre("a"));
  EXPECT_THAT(list({.includeWords = {"a"}, .excludeWords = {""}}), IsEmpty());
}

TEST_F(ListFolder, AppendsToTheResults) {
  makeFile("a");
  std::vector<std::string> results = {"before"};
  EXPECT_EQ(listFolder(results, scratch_.path() + "/", {}), 0);
  EXPECT_THAT(results, ElementsAre("before", scratch_.path() + "/a"));
}

TEST_F(ListFolder, GivesMinusOneAndTouchesNothingWhenThereIsNoSuchFolder) {
  makeFile("file");
  std::vector<std::string> results = {"before"};
  for (const std::string& folder : {scratch_.path("missing"), scratch_.path("file"), std::string()}) {
    EXPECT_EQ(listFolder(results, folder, {.recurse = true}), -1) << folder;
  }
  EXPECT_THAT(results, ElementsAre("before"));
}

TEST_F(ListFolder, PassesOverASubfolderThatCannotBeRead) {
  for (const char* name : {"a", "locked/hidden", "z"}) makeFile(name);
  const Locked folder(scratch_.path("locked"));
  EXPECT_TRUE(asOrdinaryUser([&] { return list({.recurse = true}) == std::vector<std::string>{"a", "z"}; }));
}

TEST_F(ListFolder, ListsTwentyThousandFilesWellUnderASecond) {
  // No folder has more than a thousand: some systems look through a folder's names for each file that is made.
  for (int i = 0; i < 20000; ++i) {
    const std::string folder = scratch_.path(std::to_string(i / 1000));
    if (i % 1000 == 0) fs::create_directory(folder);
    const std::string name = folder + "/pattern number " + std::to_string(i) + (i % 2 ? ".png" : ".txt");
    std::fclose(std::fopen(name.c_str(), "w"));
  }
  // The machine may be busy with something else for a while.
  std::chrono::duration<double> fastest = std::chrono::hours(1);
  for (int turn = 0; turn < 3; ++turn) {
    const auto begin = std::chrono::steady_clock::now();
    const auto found = list({.recurse = true, .includeWords = {".png", ".jp"}, .excludeWords = {".cache"}});
    fastest = std::min<std::chrono::duration<double>>(fastest, std::chrono::steady_clock::now() - begin);
    EXPECT_EQ(found.size(), 10000u);
  }
  EXPECT_LT(fastest.count(), 0.5) << "seconds";
}

}  // namespace
}  // namespace quiltor
