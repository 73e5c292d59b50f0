#include "platform/file.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <chrono>
#include <filesystem>
#include <fstream>
#include <thread>

#include "base/utf8_path.h"
#include "platform/scratch_folder.h"

namespace quiltor {
namespace {

TEST(OpenFile, OpensAPathWithCharactersOutsideAscii) {
  const ScratchFolder scratch;
  const std::string path = scratch.path("M\xC3\xBCster \xE6\xA8\xA1.png");
  std::FILE* file = openFile(path, "wb");
  ASSERT_NE(file, nullptr);
  std::fclose(file);
  const std::u8string utf8(path.begin(), path.end());
  EXPECT_TRUE(std::filesystem::is_regular_file(std::filesystem::path(utf8)));
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

TEST(OpenFile, TakesBothSeparators) {
  const ScratchFolder scratch;
  std::FILE* file = openFile(scratch.path() + "\\new", "wb");
  ASSERT_NE(file, nullptr);
  std::fclose(file);
  EXPECT_TRUE(std::filesystem::is_regular_file(scratch.path("new")));
}

TEST(ReplaceFile, PutsAFileInTheOthersPlace) {
  const ScratchFolder scratch;
  std::ofstream(scratch.path("new")) << "new";
  std::ofstream(scratch.path("old")) << "old content";
  EXPECT_TRUE(replaceFile(scratch.path("new"), scratch.path("old")));
  EXPECT_FALSE(std::filesystem::exists(scratch.path("new")));
  EXPECT_EQ(std::filesystem::file_size(scratch.path("old")), 3u);
}

TEST(ReplaceFile, SucceedsThoughSomebodyReadsTheOtherForAMoment) {
  const ScratchFolder scratch;
  for (const char* name : {"new", "old"}) std::ofstream(scratch.path(name)) << name;
  std::FILE* const reading = openFile(scratch.path("old"), "rb");
  ASSERT_NE(reading, nullptr);
  std::thread reader([&] {
    std::this_thread::sleep_for(std::chrono::milliseconds(50));
    std::fclose(reading);
  });
  EXPECT_TRUE(replaceFile(scratch.path("new"), scratch.path("old")));
  reader.join();
  EXPECT_FALSE(std::filesystem::exists(scratch.path("new")));
}

TEST(ReplaceFile, LeavesBothWhenAFolderIsInTheWay) {
  const ScratchFolder scratch;
  std::ofstream(scratch.path("new")) << "new";
  std::filesystem::create_directory(scratch.path("folder"));
  EXPECT_FALSE(replaceFile(scratch.path("new"), scratch.path("folder")));
  EXPECT_TRUE(std::filesystem::exists(scratch.path("new")));
  EXPECT_FALSE(replaceFile(scratch.path("missing"), scratch.path("new")));
}

// On POSIX a backslash is a letter of a name like any other.
TEST(ReplaceFile, TakesPathsAsTheSystemHasThem) {
  const ScratchFolder scratch;
  const std::filesystem::path folder = pathFromUtf8(scratch.path());
  const std::filesystem::path unfinished = folder / std::filesystem::path("a\\b").filename();
  std::ofstream(unfinished) << "new";
  EXPECT_FALSE(replaceFile(unfinished, folder / "c"));
  EXPECT_TRUE(std::filesystem::exists(folder / "c"));
  std::filesystem::create_directory(folder / "folder");
  EXPECT_TRUE(replaceFile(folder / "c", folder / "folder"));
  EXPECT_EQ(replaceFile(folder / "missing", folder / "c"), std::errc::no_such_file_or_directory);
}

TEST(RemoveFile, DeletesAFileAndNothingElse) {
  const ScratchFolder scratch;
  std::ofstream(scratch.path("file")) << "x";
  std::filesystem::create_directory(scratch.path("folder"));
  removeFile(scratch.path("file"));
  removeFile(scratch.path("folder"));
  removeFile(scratch.path("missing"));
  EXPECT_FALSE(std::filesystem::exists(scratch.path("file")));
  EXPECT_TRUE(std::filesystem::exists(scratch.path("folder")));
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
