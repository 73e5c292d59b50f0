#include "platform/folder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "platform/file.h"
#include "platform/open_files.h"
#include "platform/scratch_folder.h"

namespace quiltor {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::FieldsAre;

TEST(ReadFolder, TellsFilesFromFoldersInTheOrderOfTheirNames) {
  const ScratchFolder scratch;
  fs::create_directory(scratch.path("folder"));
  std::ofstream(scratch.path("a file")) << "x";
  std::ofstream(scratch.path("Z")) << "x";
  const auto contents = readFolder(scratch.path());
  ASSERT_TRUE(contents);
  EXPECT_THAT(contents->entries, ElementsAre(FieldsAre("Z", EntryType::File), FieldsAre("a file", EntryType::File),
                                             FieldsAre("folder", EntryType::Folder)));
}

TEST(ReadFolder, PassesNamesInUtf8) {
  const ScratchFolder scratch;
  for (const char* name : {"\xC3\xAB.png", "\xE7\xBE\x8E.png", "\xF0\x9F\x8E\xA8.png"}) {
    std::FILE* const file = openFile(scratch.path(name), "wb");
    ASSERT_NE(file, nullptr) << name;
    std::fclose(file);
  }
  EXPECT_EQ(createFolder(scratch.path("M\xC3\xBCster")), FolderCreation::Created);
  const auto contents = readFolder(scratch.path());
  ASSERT_TRUE(contents);
  EXPECT_THAT(
      contents->entries,
      ElementsAre(FieldsAre("M\xC3\xBCster", EntryType::Folder), FieldsAre("\xC3\xAB.png", EntryType::File),
                  FieldsAre("\xE7\xBE\x8E.png", EntryType::File), FieldsAre("\xF0\x9F\x8E\xA8.png", EntryType::File)));
  for (const FolderEntry& entry : contents->entries) {
    if (entry.type != EntryType::File) continue;
    std::FILE* const file = openFile(scratch.path(entry.name), "rb");
    EXPECT_NE(file, nullptr) << entry.name;
    if (file) std::fclose(file);
  }
}

TEST(ReadFolder, KnowsAFolderAgainThatAnotherPathLedTo) {
  const ScratchFolder scratch;
  fs::create_directory(scratch.path("folder"));
  EXPECT_EQ(readFolder(scratch.path())->identity, readFolder(scratch.path("folder/.."))->identity);
  EXPECT_NE(readFolder(scratch.path())->identity, readFolder(scratch.path("folder"))->identity);
}

TEST(ReadFolder, GivesNothingForAnEmptyPathAMissingFolderAndAFile) {
  const ScratchFolder scratch;
  std::ofstream(scratch.path("file")) << "x";
  EXPECT_FALSE(readFolder(""));
  EXPECT_FALSE(readFolder(scratch.path("missing")));
  EXPECT_FALSE(readFolder(scratch.path("file")));
}

TEST(ReadFolder, ClosesTheFolderAgain) {
  const ScratchFolder scratch;
  const int before = openFiles();
  EXPECT_TRUE(readFolder(scratch.path()));
  EXPECT_EQ(openFiles(), before);
}

TEST(CreateFolder, TellsWhatStoodInItsWay) {
  const ScratchFolder scratch;
  std::ofstream(scratch.path("file")) << "x";
  EXPECT_EQ(createFolder(scratch.path("new")), FolderCreation::Created);
  EXPECT_EQ(createFolder(scratch.path("new")), FolderCreation::Exists);
  EXPECT_EQ(createFolder(scratch.path("file")), FolderCreation::Exists);
  EXPECT_EQ(createFolder(scratch.path("missing/new")), FolderCreation::NoParent);
  EXPECT_EQ(createFolder(""), FolderCreation::NoParent);
}

TEST(FolderPaths, TakeBothSeparators) {
  const ScratchFolder scratch;
  EXPECT_EQ(createFolder(scratch.path() + "\\new"), FolderCreation::Created);
  EXPECT_TRUE(fs::is_directory(scratch.path("new")));
  EXPECT_TRUE(folderExists(scratch.path() + "\\new"));
  EXPECT_TRUE(readFolder(scratch.path() + "\\new\\"));
}

}  // namespace
}  // namespace quiltor
