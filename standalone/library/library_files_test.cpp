#include "standalone/library/library_files.h"

#include <gmock/gmock.h>

#include <filesystem>
#include <string>
#include <vector>

#include "library/data_folders.h"
#include "library/files/read_text.h"
#include "platform/testing/small_disk.h"

namespace quiltor::standalone {
namespace {

namespace fs = std::filesystem;

class LibraryFilesTest : public testing::Test {
 protected:
  // The file's name stands in the way of writing it.
  void blockShared() { fs::create_directory(data_.all("config.txt.part")); }
  void blockOwn() { fs::create_directory(data_.user("libpaths.txt.part")); }

  SavedLibrary save(bool allUsers) { return saveLibrary(settings_, libraries_, allUsers); }

  DataFolders data_;
  LibrarySettings settings_{.baseFolder = "/base", .addFolders = {"/one", "", "", ""}, .flattenSubfolders = true};
  std::vector<Library> libraries_{{"Textures", "wood | oak", "/t/wood/oak"}, {"CLOUD", "Walls", "/l/manifest"}};
};

TEST_F(LibraryFilesTest, SayTheSettingsInTheDialogsOrder) {
  EXPECT_EQ(settingsText(settings_),
            "baseFolder: /base\r\naddFolder1: /one\r\naddFolder2: [not set]\r\naddFolder3: [not set]\r\n"
            "addFolder4: [not set]\r\nloadFromCloud: true\r\ncopyOnImport: true\r\nconvertPatterns: true\r\n"
            "flattenSubfolders: true\r\n\r\n");
}

TEST_F(LibraryFilesTest, SayOneLibraryALine) {
  EXPECT_EQ(listText(libraries_), "Textures*wood | oak*/t/wood/oak\r\nCLOUD*Walls*/l/manifest\r\n");
}

TEST_F(LibraryFilesTest, OfAllUsersTakeThePlaceOfTheUsersOwn) {
  writeText(data_.user("config.txt"), "old");
  writeText(data_.user("libpaths.txt"), "old");
  const SavedLibrary saved = save(true);
  EXPECT_FALSE(saved.refusedForAll);
  EXPECT_EQ(readWholeFile(data_.all("config.txt")), settingsText(settings_));
  EXPECT_EQ(readWholeFile(data_.all("libpaths.txt")), listText(libraries_));
  EXPECT_FALSE(fs::exists(data_.user("config.txt")));
  EXPECT_FALSE(fs::exists(data_.user("libpaths.txt")));
}

TEST_F(LibraryFilesTest, OfTheUserLeaveThoseOfAllUsersAlone) {
  writeText(data_.all("config.txt"), "old");
  save(false);
  EXPECT_EQ(readWholeFile(data_.user("config.txt")), settingsText(settings_));
  EXPECT_EQ(readWholeFile(data_.user("libpaths.txt")), listText(libraries_));
  EXPECT_EQ(readWholeFile(data_.all("config.txt")), "old");
}

TEST_F(LibraryFilesTest, ThatAllUsersCannotHaveBecomeTheUsersOwn) {
  blockShared();
  const SavedLibrary saved = save(true);
  EXPECT_TRUE(saved.refusedForAll);
  EXPECT_EQ(saved.folder + "/config.txt", data_.user("config.txt"));
  EXPECT_EQ(readWholeFile(data_.user("libpaths.txt")), listText(libraries_));
}

TEST_F(LibraryFilesTest, ThatCannotBothBeWrittenStayAsTheyWere) {
  writeText(data_.user("config.txt"), "old");
  blockShared();
  blockOwn();
  EXPECT_THROW(save(true), SaveError);
  EXPECT_EQ(readWholeFile(data_.user("config.txt")), "old");
  EXPECT_FALSE(fs::exists(data_.user("config.txt.part")));
  EXPECT_FALSE(fs::exists(data_.user("libpaths.txt")));
}

TEST_F(LibraryFilesTest, StayAsTheyWereOnAFullDisk) {
  for (const char* file : {"config.txt", "libpaths.txt"}) writeText(data_.user(file), "old");
  // The first leaves no room for the settings; the second has room for them, and not for the list after them.
  libraries_.resize(20, libraries_[0]);
  const size_t settingsSize = settingsText(settings_).size();
  ASSERT_GT(listText(libraries_).size(), settingsSize);
  for (const size_t room : {size_t{0}, settingsSize}) {
    {
      const SmallDisk disk(static_cast<int64_t>(room));
      EXPECT_THROW(save(true), SaveError) << room;
    }
    for (const char* file : {"config.txt", "libpaths.txt"}) {
      EXPECT_EQ(readWholeFile(data_.user(file)), "old") << room;
      for (const std::string& path : {data_.user(file), data_.all(file)}) EXPECT_FALSE(fs::exists(path + ".part"));
    }
  }
  save(false);
  EXPECT_EQ(readWholeFile(data_.user("config.txt")), settingsText(settings_));
}

TEST_F(LibraryFilesTest, StayWhereBothDataFoldersAreTheSame) {
  const EnvironmentOverride same("QUILTOR_USER_DIR", data_.path("all"));
  save(true);
  EXPECT_TRUE(fs::exists(data_.all("config.txt")));
  EXPECT_TRUE(fs::exists(data_.all("libpaths.txt")));
}

TEST_F(LibraryFilesTest, AreMadeWithTheirFolder) {
  fs::remove(data_.path("all/Quiltor"));
  save(true);
  EXPECT_TRUE(fs::exists(data_.all("config.txt")));
}

TEST_F(LibraryFilesTest, AreTheUsersAsSoonAsTheSettingsHaveALine) {
  EXPECT_FALSE(settingsAreTheUsers());
  writeText(data_.user("config.txt"), "\n\n");
  EXPECT_FALSE(settingsAreTheUsers());
  writeText(data_.user("config.txt"), "x\n");
  EXPECT_TRUE(settingsAreTheUsers());
}

}  // namespace
}  // namespace quiltor::standalone
