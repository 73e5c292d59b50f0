#include "library/files/file_exists.h"

#include <gtest/gtest.h>

#include <fstream>

#include "platform/open_files.h"
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
  const int before = openFiles();
  EXPECT_TRUE(fileExists(scratch.path("here.png")));
  EXPECT_EQ(openFiles(), before);
}

}  // namespace
}  // namespace quiltor
