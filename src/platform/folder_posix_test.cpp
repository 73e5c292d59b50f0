#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>
#include <fstream>

#include "platform/folder.h"
#include "platform/open_files.h"
#include "platform/scratch_folder.h"

namespace quiltor {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::FieldsAre;

TEST(ReadFolder, TellsFilesFoldersAndOthersInTheOrderOfTheirNames) {
  const ScratchFolder scratch;
  fs::create_directory(scratch.path("folder"));
  std::ofstream(scratch.path("a file")) << "x";
  ASSERT_EQ(mkfifo(scratch.path("pipe").c_str(), 0600), 0);
  fs::create_symlink("folder", scratch.path("link to folder"));
  fs::create_symlink("a file", scratch.path("link to file"));
  fs::create_symlink("nothing", scratch.path("link to nothing"));
  const auto contents = readFolder(scratch.path());
  ASSERT_TRUE(contents);
  EXPECT_THAT(contents->entries,
              ElementsAre(FieldsAre("a file", EntryType::File), FieldsAre("folder", EntryType::Folder),
                          FieldsAre("link to file", EntryType::File), FieldsAre("link to folder", EntryType::Folder),
                          FieldsAre("link to nothing", EntryType::Other), FieldsAre("pipe", EntryType::Other)));
}

TEST(ReadFolder, PassesNamesInUtf8AndHidesThoseThatCannotBeSaid) {
  const ScratchFolder scratch;
  for (const char* name : {"M\xC3\xBCster", "\xE6\xA8\xA1", "\xF0\x9F\x8E\xA8"})
    std::ofstream(scratch.path(name)) << "x";
  // Latin-1, an overlong slash, a surrogate, past the last character, cut off, and a separator of other systems.
  const char* const kHidden[] = {"M\xFCster", "\xC0\xAF", "\xED\xA0\x80", "\xF4\x90\x80\x80", "cut\xE6\xA8", "a\\b"};
  for (const char* name : kHidden) std::ofstream(scratch.path(name)) << "x";
  const auto contents = readFolder(scratch.path());
  ASSERT_TRUE(contents);
  EXPECT_THAT(
      contents->entries,
      ElementsAre(FieldsAre("?", EntryType::Other), FieldsAre("?", EntryType::Other), FieldsAre("?", EntryType::Other),
                  FieldsAre("?", EntryType::Other), FieldsAre("?", EntryType::Other), FieldsAre("?", EntryType::Other),
                  FieldsAre("M\xC3\xBCster", EntryType::File), FieldsAre("\xE6\xA8\xA1", EntryType::File),
                  FieldsAre("\xF0\x9F\x8E\xA8", EntryType::File)));
}

TEST(ReadFolder, GivesNothingForAnEmptyPathAMissingFolderAndAFile) {
  const ScratchFolder scratch;
  std::ofstream(scratch.path("file")) << "x";
  EXPECT_FALSE(readFolder(""));
  EXPECT_FALSE(readFolder(scratch.path("missing")));
  EXPECT_FALSE(readFolder(scratch.path("file")));
}

TEST(ReadFolder, KnowsAFolderAgainThatAnotherPathLedTo) {
  const ScratchFolder scratch;
  fs::create_directory(scratch.path("folder"));
  fs::create_symlink(".", scratch.path("loop"));
  EXPECT_EQ(readFolder(scratch.path())->identity, readFolder(scratch.path("loop/loop"))->identity);
  EXPECT_NE(readFolder(scratch.path())->identity, readFolder(scratch.path("folder"))->identity);
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
  EXPECT_EQ(createFolder(scratch.path("file/new")), FolderCreation::Failed);
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
