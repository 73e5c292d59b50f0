#include <filesystem>

#include "tests/dialogs/dialogs_test.h"

namespace quiltor {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;
using testing_support::DialogsTest;

const std::string kSharedRefused =
    "expect alert \"Error saving to all users folder, please check permissions. "
    "Now writing to this user's folder instead.\"\n";
const std::string kOwnRefused = "expect alert \"Error saving to user's folder, please check permissions.\"\n";

class SettingsTest : public DialogsTest {
 protected:
  // Lines end as in the file; the folders' are given.
  std::string settingsFile(const std::vector<std::string>& folders) const {
    std::string text = "baseFolder: " + shared("").substr(0, shared("").size() - 1) + "\r\n";
    for (size_t i = 0; i < 4; ++i) {
      text += "addFolder" + std::to_string(i + 1) + ": " + (i < folders.size() ? folders[i] : "[not set]") + "\r\n";
    }
    return text +
           "loadFromCloud: true\r\ncopyOnImport: true\r\nconvertPatterns: true\r\nflattenSubfolders: false\r\n\r\n";
  }
};

TEST_F(SettingsTest, OpenAtTheFirstClick) {
  const Opened opened = click("dialog \"Quiltor Settings\"\nclick \"Cancel\"\nexpect closed\n");
  EXPECT_TRUE(opened.handled);
  EXPECT_EQ(opened.outFlags & PF_OutFlag_FORCE_RERENDER, 0);
}

TEST_F(SettingsTest, ShowWhatIsSetAtFirst) {
  openSettings("expect statictext\"" + folder.path("all/Quiltor") + R"("
expect statictext"[not set]"#4
expect "Show patterns from Adobe Cloud Libraries" on
expect "Automatically import Photoshop patterns in any folder" on
expect "Copy files on import" on
expect "Copy files on import" hidden
expect "Flatten subfolders in library list" off
expect "Flatten subfolders in library list" hidden
expect "Save folder settings for all users" on
expect "OK" focused
close
)");
}

TEST_F(SettingsTest, OkWritesBothFilesForAllUsers) {
  const std::string textures = folder.path("My T\xC3\xA4x \xF0\x9F\xA7\xB1 100%41");
  putImage(textures + "/a.png");
  putImage(textures + "/deep/er/b.PNG");
  put(textures + "/empty/c.txt", "");
  putImage(shared("d.jpeg"));
  put(own("config.txt"), "old");
  put(own("libpaths.txt"), "old");
  const Opened opened = openSettings("check \"Save folder settings for all users\" on\nanswer \"" + textures +
                                     "\"\nclick button\"Set\"#2\nclick \"OK\"\nexpect no alert\n");
  EXPECT_EQ(contentsOf(shared("config.txt")), settingsFile({"[not set]", textures}));
  const std::string label = textures.substr(textures.rfind('/') + 1);
  EXPECT_EQ(contentsOf(shared("libpaths.txt")), "Quiltor**" + folder.path("all/Quiltor") + "\r\n" + label + "**" +
                                                    textures + "\r\n" + label + "*deep | er*" + textures +
                                                    "/deep/er\r\n");
  EXPECT_FALSE(exists(own("config.txt")));
  EXPECT_FALSE(exists(own("libpaths.txt")));
  std::string result = settingsFile({"[not set]", textures});
  for (size_t at = 0; (at = result.find('\r')) != std::string::npos;) result.erase(at, 1);
  result.pop_back();
  EXPECT_EQ(opened.result, result);
  EXPECT_THAT(namesIn(shared("")), testing::IsSupersetOf({"config.txt", "libpaths.txt"}));
  EXPECT_THAT(namesIn(shared("")), testing::Not(testing::Contains(HasSubstr(".part"))));
}

TEST_F(SettingsTest, OkWritesForThisUserAlone) {
  put(shared("config.txt"), "shared");
  openSettings("check \"Save folder settings for all users\" off\nclick \"OK\"\nexpect no alert\n");
  EXPECT_EQ(contentsOf(own("config.txt")), settingsFile({}));
  EXPECT_EQ(contentsOf(own("libpaths.txt")), "");
  EXPECT_EQ(contentsOf(shared("config.txt")), "shared");
  EXPECT_FALSE(exists(shared("libpaths.txt")));
}

TEST_F(SettingsTest, OkMakesTheFolders) {
  std::filesystem::remove_all(folder.path("user"));
  openSettings("check \"Save folder settings for all users\" off\nclick \"OK\"\n");
  EXPECT_EQ(contentsOf(own("config.txt")), settingsFile({}));
}

TEST_F(SettingsTest, OkFallsBackOnTheUsersFolder) {
  put(folder.path("all"), "a file in the place of the folder");
  openSettings("click \"OK\"\n" + kSharedRefused + "expect no alert\n");
  EXPECT_EQ(contentsOf(own("config.txt")), settingsFile({}));
  EXPECT_EQ(contentsOf(own("libpaths.txt")), "");
}

TEST_F(SettingsTest, OkTellsWhenNoFolderCanBeWritten) {
  put(own("config.txt"), "baseFolder: old\r\n");
  const std::string steps =
      "option unwritable \"" + folder.path("all") + "\"\noption unwritable \"" + folder.path("user") + "\"\n";
  Opened opened = openSettings(steps + "check \"Save folder settings for all users\" on\nclick \"OK\"\n" +
                               kSharedRefused + kOwnRefused + "expect no alert\n");
  EXPECT_THAT(opened.result, StartsWith("baseFolder: "));
  opened = openSettings(steps + "click \"OK\"\n" + kOwnRefused + "expect no alert\n");
  EXPECT_EQ(contentsOf(own("config.txt")), "baseFolder: old\r\n");
  EXPECT_THAT(namesIn(userFolder()), testing::Not(testing::Contains("libpaths.txt")));
  EXPECT_THAT(namesIn(shared("")), IsEmpty());
}

TEST_F(SettingsTest, KeepTheFilesWhenTheHostDoesNotLetScriptsWrite) {
  for (const char* way : {"denied", "denied-late"}) {
    put(shared("config.txt"), "baseFolder: old\r\n");
    openSettings(std::string("option writing ") + way + "\nclick \"OK\"\n" + kSharedRefused + kOwnRefused +
                 "expect no alert\n");
    EXPECT_EQ(contentsOf(shared("config.txt")), "baseFolder: old\r\n") << way;
    EXPECT_FALSE(exists(own("config.txt"))) << way;
    EXPECT_FALSE(exists(own("libpaths.txt"))) << way;
  }
}

TEST_F(SettingsTest, CancelChangesNothing) {
  put(shared("config.txt"), "addFolder1: /somewhere\r\n");
  for (const char* way : {"click \"Cancel\"", "press Escape", "close"}) {
    const Opened opened = openSettings(std::string("click button\"Clear\"\n") + way + "\nexpect result \"\"\n");
    EXPECT_TRUE(opened.ran);
    EXPECT_EQ(contentsOf(shared("config.txt")), "addFolder1: /somewhere\r\n");
    EXPECT_THAT(namesIn(shared("")), ElementsAre("config.txt")) << way;
    EXPECT_THAT(namesIn(userFolder()), testing::Not(testing::Contains("config.txt"))) << way;
  }
}

TEST_F(SettingsTest, ShowWhatWasSaved) {
  openSettings("answer \"" + folder.path("user") +
               "\"\nclick button\"Set\"#3\n"
               "check \"Show patterns from Adobe Cloud Libraries\" off\nclick \"OK\"\n");
  const std::string shown = "expect statictext\"" + folder.path("user") +
                            "\"\nexpect statictext\"[not set]\"#3\n"
                            "expect \"Show patterns from Adobe Cloud Libraries\" off\n"
                            "expect \"Automatically import Photoshop patterns in any folder\" on\n";
  openSettings(shown +
               "expect \"Save folder settings for all users\" on\n"
               "check \"Save folder settings for all users\" off\nclick \"OK\"\n");
  openSettings(shown + "expect \"Save folder settings for all users\" off\nclick button\"Clear\"#3\nclick \"OK\"\n");
  EXPECT_THAT(contentsOf(own("config.txt")), HasSubstr("\r\naddFolder3: [not set]\r\nadd"));
  EXPECT_THAT(contentsOf(shared("config.txt")), HasSubstr("\r\naddFolder3: " + folder.path("user") + "\r\nadd"));
}

TEST_F(SettingsTest, ChooseFoldersByTheirLabelsToo) {
  const std::string first = folder.path("user"), second = folder.path("user/Quiltor");
  const Opened opened =
      openSettings("answer \"" + first + "\"\nclick \"Additional folder 4:\"\nexpect statictext\"" + first +
                   "\"\nanswer \"" + second + "\"\nclick statictext\"" + first + "\"\nexpect statictext\"" + second +
                   "\"\nanswer cancel\nclick button\"Set\"#4\nexpect statictext\"" + second + "\"\nclose\n");
  EXPECT_THAT(opened.printed, HasSubstr("Select a folder (from " + first + ")"));
  EXPECT_THAT(opened.printed, HasSubstr("Select a folder (from " + second + ")"));
}

TEST_F(SettingsTest, AreWorkedByTheKeyboardAlone) {
  openSettings("press Enter\nexpect closed\n");
  EXPECT_EQ(contentsOf(shared("config.txt")), settingsFile({}));
  const Opened opened = openSettings(
      "press Tab\nexpect \"Cancel\" focused\npress Tab\nexpect button\"Set\" focused\n"
      "answer \"" +
      folder.path("user") +
      "\"\npress Space\npress Tab\nexpect button\"Clear\" focused\n"
      "press Shift+Tab\npress Shift+Tab\npress Shift+Tab\nexpect \"OK\" focused\n"
      "press Shift+Tab\nexpect \"Save folder settings for all users\" focused\npress Space\n"
      "expect \"Save folder settings for all users\" off\npress Enter\nexpect closed\n");
  EXPECT_EQ(contentsOf(own("config.txt")), settingsFile({folder.path("user")}));
}

TEST_F(SettingsTest, OkStartsTheConversion) {
  const std::string textures = folder.path("Textures");
  putImage(textures + "/a.png");
  const Opened opened = click("answer \"" + textures + "\"\nclick button\"Set\"\nclick \"OK\"\n");
  EXPECT_EQ(opened.outFlags & PF_OutFlag_FORCE_RERENDER, 0);
  EXPECT_EQ(namesIn(shared(".cache")).size(), 1u);
}

TEST_F(SettingsTest, ListTheSameWhateverTheOrderOfAFolder) {
  const std::string textures = folder.path("Textures");
  for (const char* name : {"/B/1.png", "/a/1.png", "/C/z/1.png", "/C/Y/1.png"}) putImage(textures + name);
  std::string list;
  for (const char* order : {"name", "reversed", "shuffled"}) {
    openSettings(std::string("option order ") + order + "\nanswer \"" + textures +
                 "\"\nclick button\"Set\"\nclick \"OK\"\n");
    if (list.empty()) list = contentsOf(shared("libpaths.txt"));
    EXPECT_EQ(contentsOf(shared("libpaths.txt")), list) << order;
  }
  EXPECT_THAT(list, StartsWith("Textures*a*"));
}

}  // namespace
}  // namespace quiltor
