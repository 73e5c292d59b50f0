#include "library/files/file_exists.h"

#include <gtest/gtest.h>

#include <fstream>

#include "platform/scratch_folder.h"

namespace quiltor {
namespace {

TEST(FileExists, IsTrueForAFileAndFalseForAFolderAMissingFileAndAnEmptyPath) {
  const ScratchFolder scratch;
  std::ofstream(scratch.path("here.png")) << "x";
  EXPECT_TRUE(fileExists(scratch.path("here.png")));
  EXPECT_FALSE(fileExists(scratch.path()));
  EXPECT_FALSE(fileExists(scratch.path("missing.png")));
  EXPECT_FALSE(fileExists(""));
}

TEST(FileExists, ClosesTheFileAgain) {
  const ScratchFolder scratch;
  std::ofstream(scratch.path("here.png")) << "x";
  // More often than a process may have files open.
  for (int turn = 0; turn < 70000; ++turn) ASSERT_TRUE(fileExists(scratch.path("here.png"))) << "after " << turn;
}

}  // namespace
}  // namespace quiltor
