#include <gmock/gmock.h>
#include <gtest/gtest.h>

#ifndef _WIN32
#include <sys/resource.h>
#include <unistd.h>
#endif

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <fstream>

#include "library/files/folders.h"
#include "platform/folder.h"
#include "platform/scratch_folder.h"

namespace quiltor {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::IsEmpty;

class ListFolder : public testing::Test {
 protected:
  void makeFile(const std::string& name) {
    fs::create_directories(fs::path(scratch_.path(name)).parent_path());
    std::ofstream(scratch_.path(name)) << "x";
  }

  // The listing without the scratch folder's path and the separator.
  std::vector<std::string> list(const FolderListOptions& options = {}) {
    std::vector<std::string> results;
    EXPECT_EQ(listFolder(results, scratch_.path(), options), 0);
    if (options.namesOnly) return results;
    for (std::string& path : results) {
      EXPECT_TRUE(path.starts_with(scratch_.path() + kPathSeparator)) << path;
      path.erase(0, scratch_.path().size() + 1);
      std::replace(path.begin(), path.end(), kPathSeparator, '/');
    }
    return results;
  }

  ScratchFolder scratch_;
};

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

#ifndef _WIN32  // the system has no such links, permissions and limits
TEST_F(ListFolder, EndsWhereLinksLeadInALoop) {
  makeFile("a/x");
  makeFile("b/y");
  fs::create_symlink("../b", scratch_.path("a/to b"));
  fs::create_symlink("../a", scratch_.path("b/to a"));
  fs::create_symlink("..", scratch_.path("b/up"));
  fs::create_symlink("itself", scratch_.path("itself"));
  EXPECT_THAT(list({.recurse = true}), ElementsAre("a/to b/y", "a/x"));
}

TEST_F(ListFolder, IsNotMultipliedByFoldersThatAllLinkToEachOther) {
  constexpr int kFolders = 30;
  for (int from = 0; from < kFolders; ++from) {
    makeFile(std::to_string(from) + "/x");
    for (int to = 0; to < kFolders; ++to) {
      fs::create_symlink("../" + std::to_string(to), scratch_.path(std::to_string(from) + "/l" + std::to_string(to)));
    }
  }
  EXPECT_EQ(list({.recurse = true}).size(), size_t{kFolders});
}

TEST_F(ListFolder, FollowsALinkToAFolderElsewhere) {
  const ScratchFolder elsewhere;
  std::ofstream(elsewhere.path("far.png")) << "x";
  fs::create_symlink(elsewhere.path(), scratch_.path("link"));
  EXPECT_THAT(list({.recurse = true}), ElementsAre("link/far.png"));
}

// An administrator may read everything, so the folder that cannot be read is one whose path is too long; and, for
// everyone else, one without permission as well.
TEST_F(ListFolder, PassesOverASubfolderThatCannotBeRead) {
  makeFile("a");
  makeFile("locked/hidden");
  makeFile("z");
  const fs::path start = fs::current_path();
  fs::current_path(scratch_.path());
  const std::string longName(250, 'm');
  for (int level = 0; level < 18; ++level) {
    fs::create_directory(longName);
    fs::current_path(longName);
  }
  std::ofstream("out of reach") << "x";
  fs::current_path(start);
  fs::permissions(scratch_.path("locked"), fs::perms::none);
  const std::vector<std::string> found = list({.recurse = true});
  fs::permissions(scratch_.path("locked"), fs::perms::owner_all);
  if (geteuid() == 0) {
    EXPECT_THAT(found, ElementsAre("a", "locked/hidden", "z"));
  } else {
    EXPECT_THAT(found, ElementsAre("a", "z"));
  }
}

TEST_F(ListFolder, TakesATreeThatIsDeeperThanFilesMayBeOpen) {
  std::string path;
  for (int level = 0; level < 200; ++level) path += "d/";
  makeFile(path + "deep");
  rlimit before;
  ASSERT_EQ(getrlimit(RLIMIT_NOFILE, &before), 0);
  const rlimit few = {100, before.rlim_max};
  ASSERT_EQ(setrlimit(RLIMIT_NOFILE, &few), 0);
  const std::vector<std::string> found = list({.recurse = true});
  setrlimit(RLIMIT_NOFILE, &before);
  EXPECT_THAT(found, ElementsAre(path + "deep"));
}
#endif

TEST_F(ListFolder, ListsTwentyThousandFilesWellUnderASecond) {
  // No folder has more than a thousand: some systems look through a folder's names for each file that is made.
  for (int i = 0; i < 20000; ++i) {
    const std::string folder = scratch_.path(std::to_string(i / 1000));
    if (i % 1000 == 0) fs::create_directory(folder);
    const std::string name = folder + "/pattern number " + std::to_string(i) + (i % 2 ? ".png" : ".txt");
    std::fclose(std::fopen(name.c_str(), "w"));
  }
  const auto begin = std::chrono::steady_clock::now();
  const auto found = list({.recurse = true, .includeWords = {".png", ".jp"}, .excludeWords = {".cache"}});
  const std::chrono::duration<double> seconds = std::chrono::steady_clock::now() - begin;
  EXPECT_EQ(found.size(), 10000u);
  EXPECT_LT(seconds.count(), 0.5) << "seconds";
}

}  // namespace
}  // namespace quiltor
