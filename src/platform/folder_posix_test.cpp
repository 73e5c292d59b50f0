#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>
#include <fstream>
#include <iterator>

#include "platform/folder.h"
#include "platform/scratch_folder.h"

namespace quiltor {
namespace {

namespace fs = std::filesystem;
using testing::Each;
using testing::ElementsAre;
using testing::FieldsAre;
using testing::SizeIs;

TEST(LinuxFolder, TellsPipesAndWhereLinksLead) {
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

TEST(LinuxFolder, HidesNamesThatCannotBeSaid) {
  const ScratchFolder scratch;
  // Latin-1, an overlong slash, a surrogate, past the last character, cut off, and a separator of other systems.
  const char* const kHidden[] = {"M\xFCster", "\xC0\xAF", "\xED\xA0\x80", "\xF4\x90\x80\x80", "cut\xE6\xA8", "a\\b"};
  for (const char* name : kHidden) std::ofstream(scratch.path(name)) << "x";
  const auto contents = readFolder(scratch.path());
  ASSERT_TRUE(contents);
  EXPECT_THAT(contents->entries, SizeIs(std::size(kHidden)));
  EXPECT_THAT(contents->entries, Each(FieldsAre("?", EntryType::Other)));
}

TEST(LinuxFolder, IsKnownAgainWhereALinkLedToIt) {
  const ScratchFolder scratch;
  fs::create_directory(scratch.path("folder"));
  fs::create_symlink(".", scratch.path("loop"));
  EXPECT_EQ(readFolder(scratch.path())->identity, readFolder(scratch.path("loop/loop"))->identity);
  EXPECT_NE(readFolder(scratch.path())->identity, readFolder(scratch.path("folder"))->identity);
}

TEST(LinuxFolder, CannotBeMadeBelowAFile) {
  const ScratchFolder scratch;
  std::ofstream(scratch.path("file")) << "x";
  EXPECT_EQ(createFolder(scratch.path("file/new")), FolderCreation::Failed);
}

}  // namespace
}  // namespace quiltor
