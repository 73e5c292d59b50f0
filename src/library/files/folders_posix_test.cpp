#include <gtest/gtest.h>

#include <filesystem>

#include "library/files/folders.h"
#include "platform/testing/current_scratch_folder.h"

namespace quiltor {
namespace {

namespace fs = std::filesystem;

class LinuxFolders : public testing::Test {
 protected:
  const CurrentScratchFolder scratch_;
};

TEST_F(LinuxFolders, ANameWithoutSeparatorWhoseParentIsMissingIsNotMade) {
  const ScratchFolder leaving;
  fs::create_directory(leaving.path("gone"));
  fs::current_path(leaving.path("gone"));
  fs::remove(leaving.path("gone"));
  EXPECT_FALSE(createFolderChain("new"));
  EXPECT_FALSE(fs::exists(leaving.path("gone")));
  EXPECT_FALSE(createFolderChain(""));
}

TEST_F(LinuxFolders, StopBelowOneThatCannotBeMade) {
  fs::create_symlink("nowhere/at/all", "dangling");
  EXPECT_FALSE(createFolderChain("dangling/one/two"));
}

}  // namespace
}  // namespace quiltor
