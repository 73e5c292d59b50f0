#include "library/files/folders.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <system_error>

#include "platform/testing/current_scratch_folder.h"

namespace quiltor {
namespace {

namespace fs = std::filesystem;

class Folders : public testing::Test {
 protected:
  const CurrentScratchFolder scratch_;
};

TEST_F(Folders, OneThatExistsIsMadeAlready) { EXPECT_TRUE(createFolderChain(scratch_.path())); }

TEST_F(Folders, CannotBeMadeWhereAFileHasTheName) {
  std::ofstream("file") << "x";
  EXPECT_FALSE(createFolderChain("file"));
  EXPECT_FALSE(createFolderChain("file/below"));
  EXPECT_TRUE(fs::is_regular_file("file"));
}

TEST_F(Folders, ThreeLevelsAreMadeFromTheTopDown) {
  EXPECT_TRUE(createFolderChain("one/two\\three"));
  EXPECT_TRUE(fs::is_directory("one/two/three"));
}

TEST_F(Folders, ATrailingSeparatorMakesTheFolderAndCountsOnceItIsThere) {
  EXPECT_FALSE(createFolderChain("one/two/"));
  EXPECT_TRUE(fs::is_directory("one/two"));
  EXPECT_TRUE(createFolderChain("one/two/"));
}

TEST_F(Folders, AreToldFromFilesAndFromNothing) {
  std::ofstream("file") << "x";
  EXPECT_TRUE(isFolder(scratch_.path()));
  EXPECT_FALSE(isFolder("file"));
  EXPECT_FALSE(isFolder("missing"));
  EXPECT_FALSE(isFolder(""));
}

TEST_F(Folders, AreKnownWithSeparatorsAtTheEnd) {
  EXPECT_TRUE(isFolder(scratch_.path() + "/"));
  EXPECT_TRUE(isFolder(scratch_.path() + "\\/\\"));
  EXPECT_TRUE(isFolder("/"));
  std::ofstream("file") << "x";
  EXPECT_FALSE(isFolder("file\\"));
}

TEST_F(Folders, ADrivesNameMeansItsRoot) {
  std::error_code thereAlready;
  fs::create_directory("C:", thereAlready);
  EXPECT_TRUE(isFolder("C:"));
  EXPECT_FALSE(isFolder("Y:"));
}

}  // namespace
}  // namespace quiltor
