#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/resource.h>

#include <filesystem>
#include <fstream>

#include "library/files/list_folder_test.h"

namespace quiltor {
namespace {

namespace fs = std::filesystem;
using LinuxListFolder = ListFolderTest;
using testing::ElementsAre;

TEST_F(LinuxListFolder, EndsWhereLinksLeadInALoop) {
  makeFile("a/x");
  makeFile("b/y");
  fs::create_symlink("../b", scratch_.path("a/to b"));
  fs::create_symlink("../a", scratch_.path("b/to a"));
  fs::create_symlink("..", scratch_.path("b/up"));
  fs::create_symlink("itself", scratch_.path("itself"));
  EXPECT_THAT(list({.recurse = true}), ElementsAre("a/to b/y", "a/x"));
}

TEST_F(LinuxListFolder, IsNotMultipliedByFoldersThatAllLinkToEachOther) {
  constexpr int kFolders = 30;
  for (int from = 0; from < kFolders; ++from) {
    makeFile(std::to_string(from) + "/x");
    for (int to = 0; to < kFolders; ++to) {
      fs::create_symlink("../" + std::to_string(to), scratch_.path(std::to_string(from) + "/l" + std::to_string(to)));
    }
  }
  EXPECT_EQ(list({.recurse = true}).size(), size_t{kFolders});
}

TEST_F(LinuxListFolder, FollowsALinkToAFolderElsewhere) {
  const ScratchFolder elsewhere;
  std::ofstream(elsewhere.path("far.png")) << "x";
  fs::create_symlink(elsewhere.path(), scratch_.path("link"));
  EXPECT_THAT(list({.recurse = true}), ElementsAre("link/far.png"));
}

TEST_F(LinuxListFolder, PassesOverASubfolderWhosePathIsTooLong) {
  makeFile("a");
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
  EXPECT_THAT(list({.recurse = true}), ElementsAre("a", "z"));
}

TEST_F(LinuxListFolder, TakesATreeThatIsDeeperThanFilesMayBeOpen) {
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

}  // namespace
}  // namespace quiltor
