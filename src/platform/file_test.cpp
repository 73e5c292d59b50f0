#include "platform/file.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <filesystem>
#include <fstream>

#include "platform/scratch_folder.h"

namespace quiltor {
namespace {

TEST(OpenFile, OpensAPathWithCharactersOutsideAscii) {
  const ScratchFolder scratch;
  const std::string path = scratch.path("M\xC3\xBCster \xE6\xA8\xA1.png");
  std::FILE* file = openFile(path, "wb");
  ASSERT_NE(file, nullptr);
  std::fclose(file);
  EXPECT_TRUE(std::filesystem::is_regular_file(std::filesystem::path(path)));
}

TEST(OpenFile, GivesNothingForAMissingFile) {
  const ScratchFolder scratch;
  EXPECT_EQ(openFile(scratch.path("missing"), "rb"), nullptr);
  EXPECT_EQ(openFile("", "rb"), nullptr);
}

TEST(OpenFile, GivesNothingForAFolder) {
  const ScratchFolder scratch;
  EXPECT_EQ(openFile(scratch.path(), "rb"), nullptr);
  EXPECT_EQ(errno, EISDIR);
}

TEST(FileSize, IsTheNumberOfBytesAndLeavesThePosition) {
  const ScratchFolder scratch;
  std::ofstream(scratch.path("ten")) << "0123456789";
  std::FILE* file = openFile(scratch.path("ten"), "rb");
  ASSERT_NE(file, nullptr);
  std::fgetc(file);
  EXPECT_EQ(fileSize(file), 10);
  EXPECT_EQ(std::fgetc(file), '1');
  std::fclose(file);
}

}  // namespace
}  // namespace quiltor
