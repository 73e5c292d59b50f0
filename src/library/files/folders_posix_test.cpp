#include <gtest/gtest.h>

#include <filesystem>

#include "library/files/folders.h"
#include "platform/scratch_folder.h"

namespace quiltor {
namespace {

namespace fs = std::filesystem;

// Relative paths start in the scratch folder.
class LinuxFolders : public testing::Test {
 protected:
  LinuxFolders() { fs::current_path(scratch_.path()); }
  ~LinuxFolders() override { fs::current_path(before_); }

  const fs::path before_ = fs::current_path();
  ScratchFolder scratch_;
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
