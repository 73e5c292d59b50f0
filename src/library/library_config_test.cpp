#include "library/library_config.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

#include "library/data_folders.h"

namespace quiltor {
namespace {

using testing::ElementsAre;
using testing::FieldsAre;
using testing::IsEmpty;

class LibraryConfig : public testing::Test {
 protected:
  void writeList(const std::string& text) { writeText(data_.all("libpaths.txt"), text); }
  void writeSettings(const std::string& text) { writeText(data_.all("config.txt"), text); }

  DataFolders data_;
};

TEST_F(LibraryConfig, ALineHasLabelNameAndPath) {
  writeList("Mine*Wood | Oak*/lib/Wood/Oak\r\n Stone * Grey\t*\t/lib/Stone \r\n");
  EXPECT_THAT(readLibraries(LookUp::PlugIn),
              ElementsAre(FieldsAre("Mine", "Wood | Oak", "/lib/Wood/Oak"), FieldsAre("Stone", "Grey", "/lib/Stone")));
}

TEST_F(LibraryConfig, MissingFieldsAreEmpty) {
  writeList("Mine*Wood\nonly\n");
  EXPECT_THAT(readLibraries(LookUp::PlugIn), ElementsAre(FieldsAre("Mine", "Wood", ""), FieldsAre("only", "", "")));
}

TEST_F(LibraryConfig, ALineOfTwoFieldsAddsAnEmptyFolderToBothLists) {
  writeList("Mine*Wood\r\n");
  const ConversionFolders folders = readConversionFolders();
  EXPECT_THAT(folders.images, ElementsAre(""));
  EXPECT_THAT(folders.patterns, ElementsAre(""));
}

TEST_F(LibraryConfig, ACloudLibrarysPicturesAreBesideItsManifest) {
  writeList("CLOUD*Shared*/cloud/LIBS/12/manifest\r\nCLOUDS*Mine*/lib/manifest\r\n");
  EXPECT_THAT(readConversionFolders().images, ElementsAre("/cloud/LIBS/12/components", "/lib/manifest"));
}

TEST_F(LibraryConfig, FoldersOfTheListComeBeforeThoseOfTheSettings) {
  writeList("Mine**/lib\r\nMine*Wood*/lib/Wood\r\n");
  writeSettings(
      "baseFolder: /base\r\naddFolder1: /one\r\naddFolder2: /two\r\naddFolder3: /three\r\n"
      "addFolder4: /four\r\nloadFromCloud: true\r\nflattenSubfolders: /not/a/folder\r\n\r\n");
  const ConversionFolders folders = readConversionFolders();
  EXPECT_THAT(folders.images, ElementsAre("/lib", "/lib/Wood"));
  EXPECT_THAT(folders.patterns, ElementsAre("/lib", "/lib/Wood", "/base", "/one", "/two", "/three", "/four"));
}

TEST_F(LibraryConfig, AFolderThatIsNotSetIsTakenAsItStandsButALineOfNothingElseIsNot) {
  writeList("Mine**/lib\n");
  writeSettings(" [not set]\t\r\naddFolder1: [not set]\r\n");
  EXPECT_THAT(readConversionFolders().patterns, ElementsAre("/lib", "[not set]"));
}

TEST_F(LibraryConfig, AMarkerCountsWhereverItStandsInALine) {
  writeList("Mine**/lib\n");
  writeSettings("lder:\t/short \r\naddFolder2: /my/baseFolder: two/der1: x\r\n");
  EXPECT_THAT(readConversionFolders().patterns,
              ElementsAre("/lib", "/short", "two/der1: x", "x", "/my/baseFolder: two/der1: x"));
}

TEST_F(LibraryConfig, SettingsAloneMakeNoFoldersOfImages) {
  writeList("");
  writeSettings("baseFolder: /base\n");
  EXPECT_THAT(readConversionFolders().images, IsEmpty());
}

TEST_F(LibraryConfig, NothingIsReadWithoutFiles) {
  EXPECT_THAT(readConversionFolders().images, IsEmpty());
  EXPECT_THAT(readConversionFolders().patterns, IsEmpty());
  EXPECT_THAT(readLibraries(LookUp::PlugIn), IsEmpty());
}

TEST_F(LibraryConfig, NothingIsReadFromTheDrivesRootWithoutDataFolders) {
  const EnvironmentOverride home("HOME", std::nullopt);
  const EnvironmentOverride config("QUILTOR_USER_DIR", std::nullopt);
  const EnvironmentOverride data("XDG_DATA_HOME", std::nullopt);
  const EnvironmentOverride allUsers("QUILTOR_ALLUSERS_DIR", std::nullopt);
  EXPECT_THAT(readConversionFolders().patterns, IsEmpty());
}

class LibraryConfigLookUp : public LibraryConfig {
 protected:
  LibraryConfigLookUp() {
    writeList("All**/all\n");
    writeSettings("baseFolder: /all base\n");
    writeText(data_.user("libpaths.txt"), "User**/user\n");
    writeText(data_.user("config.txt"), "baseFolder: /user base\n");
  }

  static std::string firstLabel(LookUp lookUp) { return readLibraries(lookUp).at(0).label; }
};

TEST_F(LibraryConfigLookUp, ThePlugInReadsTheFilesOfAllUsersFirst) {
  EXPECT_EQ(firstLabel(LookUp::PlugIn), "All");
  EXPECT_THAT(readConversionFolders().patterns, ElementsAre("/all", "/all base"));
}

TEST_F(LibraryConfigLookUp, ThePlugInTakesTheUsersSettingsWhereTheSharedOnesAreMissing) {
  std::filesystem::remove(data_.all("config.txt"));
  EXPECT_THAT(readConversionFolders().patterns, ElementsAre("/all", "/user base"));
}

TEST_F(LibraryConfigLookUp, ThePlugInStaysWithTheUserOnceTheSharedListIsMissing) {
  std::filesystem::remove(data_.all("libpaths.txt"));
  EXPECT_EQ(firstLabel(LookUp::PlugIn), "User");
  EXPECT_THAT(readConversionFolders().patterns, ElementsAre("/user", "/user base"));
}

TEST_F(LibraryConfigLookUp, TheDialogsReadTheUsersFilesFirst) {
  EXPECT_EQ(firstLabel(LookUp::Dialogs), "User");
  EXPECT_EQ(readLibrarySettings().baseFolder, "/user base");
}

TEST_F(LibraryConfigLookUp, TheDialogsFallBackOnSharedSettingsWhenTheUsersAreMissingOrEmpty) {
  writeText(data_.user("config.txt"), "\n");
  EXPECT_EQ(readLibrarySettings().baseFolder, "/all base");
  std::filesystem::remove(data_.user("config.txt"));
  EXPECT_EQ(readLibrarySettings().baseFolder, "/all base");
}

TEST_F(LibraryConfigLookUp, TheDialogsFallBackOnTheSharedListOnlyWhenTheUsersIsMissing) {
  writeText(data_.user("libpaths.txt"), "");
  EXPECT_THAT(readLibraries(LookUp::Dialogs), IsEmpty());
  std::filesystem::remove(data_.user("libpaths.txt"));
  EXPECT_EQ(firstLabel(LookUp::Dialogs), "All");
}

TEST_F(LibraryConfig, TheDialogsTakeTheSharedFolderForALibraryWhereThereIsNoList) {
  EXPECT_THAT(readLibraries(LookUp::Dialogs), ElementsAre(FieldsAre("Quiltor", "", data_.path("all") + "/Quiltor")));
}

TEST_F(LibraryConfig, SwitchesAreOnOnlyForTheExactWord) {
  EXPECT_THAT(readLibrarySettings(), FieldsAre("", ElementsAre("", "", "", ""), true, true, true, false));
  writeSettings(
      "loadFromCloud: True\r\ncopyOnImport: false\r\nconvertPatterns: true yes\r\nflattenSubfolders:true \r\n");
  EXPECT_THAT(readLibrarySettings(), FieldsAre("", ElementsAre("", "", "", ""), false, false, false, true));
}

TEST_F(LibraryConfig, TheDialogsKeepWhatStandsForAFolderThatIsNotSet) {
  writeSettings("addFolder1: /one\r\naddFolder3: [not set]\r\n");
  EXPECT_THAT(readLibrarySettings().addFolders, ElementsAre("/one", "", "[not set]", ""));
}

}  // namespace
}  // namespace quiltor
