#include <filesystem>

#include "library/cache_names.h"
#include "tests/dialogs/dialogs_test.h"

namespace quiltor {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing_support::DialogsTest;

// What the buttons of the gallery above its images do. One library, the folder Textures, with one image.
class GalleryCommands : public DialogsTest {
 protected:
  GalleryCommands() {
    putImage(textures("/a.png"));
    putList({"Textures**" + textures()});
  }

  std::string textures(const std::string& name = "") const { return folder.path("Textures" + name); }
  std::string outside(const std::string& name = "") const { return folder.path("Outside" + name); }
  std::string list() const { return contentsOf(shared("libpaths.txt")); }
  static std::string answer(const std::string& path) { return "answer \"" + path + "\"\n"; }
};

TEST_F(GalleryCommands, RefreshWritesTheListAnewAndSaysSo) {
  putImage(textures("/new/b.png"));
  put(shared("config.txt"), "addFolder2: " + textures() + "\r\nloadFromCloud: false\r\n");
  const Opened opened = click("click \"Refresh\"\nexpect dropdownlist items 2\nexpect iconbutton shown\nclose\n");
  EXPECT_EQ(opened.result, "*UPD");
  EXPECT_EQ(opened.outFlags & PF_OutFlag_FORCE_RERENDER, 0);
  EXPECT_EQ(list(), "Textures**" + textures() + "\r\nTextures*new*" + textures("/new") + "\r\n");
  EXPECT_THAT(namesIn(shared(".cache")), testing::Contains(std::to_string(pathHash(textures("/new/b.png"))) + ".png"))
      << "the conversion runs again";
}

TEST_F(GalleryCommands, RefreshKeepsTheLibrarySelected) {
  putImage(outside("/z/b.png"));
  put(shared("config.txt"), "addFolder1: " + outside() + "\r\naddFolder2: " + textures() + "\r\n");
  click("click \"Refresh\"\nexpect dropdownlist items 2\nexpect dropdownlist selected \"[Textures] \"\nclose\n");
}

TEST_F(GalleryCommands, APickAfterRefreshSaysBoth) {
  put(shared("config.txt"), "addFolder1: " + textures() + "\r\n");
  const Opened opened = click("click \"Refresh\"\nclick iconbutton\n");
  EXPECT_EQ(opened.result, textures("/a.png") + "*Textures**" + textures() + "*UPD");
}

TEST_F(GalleryCommands, RefreshWritesTheListWhereItFoundIt) {
  put(own("libpaths.txt"), "Old**/nowhere\n");
  put(own("config.txt"), "addFolder1: " + textures() + "\r\n");
  const std::string before = list();
  click("click \"Refresh\"\nclose\n");
  EXPECT_EQ(contentsOf(own("libpaths.txt")), "Textures**" + textures() + "\r\n");
  EXPECT_EQ(list(), before);
}

TEST_F(GalleryCommands, RefreshWithoutSettingsListsTheBaseFolder) {
  putImage(shared("PS Patterns/N/N_00.png"));
  click("click \"Refresh\"\nexpect dropdownlist selected \"[Quiltor] PS Patterns | N\"\nclose\n");
  EXPECT_EQ(list(), "Quiltor*PS Patterns | N*" + shared("PS Patterns/N") + "\r\n");
}

TEST_F(GalleryCommands, RefreshThatFindsNothingClosesTheGallery) {
  const Opened opened = click(
      "click \"Refresh\"\n"
      "expect alert \"No paths found, please open the config dialog and set them!\"\n"
      "expect no alert\nexpect closed\n");
  EXPECT_EQ(opened.result, "*UPD");
}

// The items of the old list mean nothing in the new one, which may be shorter or in another order.
TEST_F(GalleryCommands, RefreshOfALibraryWithoutAFolderThatFindsNothingClosesTheGallery) {
  putList({"only"});
  const Opened opened = click(
      "click \"Refresh\"\n"
      "expect alert \"No paths found, please open the config dialog and set them!\"\n"
      "expect no alert\nexpect closed\n");
  EXPECT_EQ(opened.result, "*UPD");
}

TEST_F(GalleryCommands, RefreshOfALibraryWithoutAFolderSelectsTheFirst) {
  putImage(outside("/a/a.png"));
  putImage(outside("/b/b.png"));
  putList({"x**/nowhere", "only"});
  put(shared("config.txt"), "addFolder1: " + outside() + "\r\n");
  click(
      "choose dropdownlist \"[only] \"\nclick \"Refresh\"\nexpect dropdownlist items 2\n"
      "expect dropdownlist selected \"[Outside] a\"\nexpect iconbutton#2 hidden\nclose\nexpect no alert\n");
}

TEST_F(GalleryCommands, RefreshTellsWhenTheListCannotBeWritten) {
  put(shared("config.txt"), "addFolder1: " + outside() + "\r\n");
  const std::string before = list();
  for (const std::string& option : {"option unwritable \"" + folder.path("all") + "\"",
                                    std::string("option writing denied"), std::string("option writing denied-late")}) {
    click(option +
          "\nclick \"Refresh\"\nexpect alert \"Error saving the library list, please check permissions.\"\n"
          "expect no alert\nexpect dropdownlist selected \"[Textures] \"\nclose\n");
    EXPECT_EQ(list(), before) << option;
  }
}

TEST_F(GalleryCommands, ShowTheFolderInTheSystem) {
  EXPECT_THAT(click("click \"Show folder in OS\"\nclose\n").printed, HasSubstr("open: " + textures() + "\n"));
}

TEST_F(GalleryCommands, ImportAFile) {
  putImage(outside("/b \xC3\xA4%41.png"));
  const Opened opened = click(answer(outside("/b \xC3\xA4%41.png")) +
                              "click \"Import file\"\nexpect iconbutton#2 shown\nexpect iconbutton#3 hidden\n"
                              "expect no alert\nclick iconbutton#2\n");
  EXPECT_EQ(opened.result, textures("/b \xC3\xA4%41.png") + "*Textures**" + textures() + "*UPD");
  EXPECT_THAT(opened.printed, HasSubstr("choose file: Select a file to import [images"));
  EXPECT_EQ(contentsOf(textures("/b \xC3\xA4%41.png")), contentsOf(outside("/b \xC3\xA4%41.png")));
  EXPECT_THAT(namesIn(shared(".cache")), testing::SizeIs(2)) << "the conversion runs again";
}

TEST_F(GalleryCommands, ImportIntoTheLibraryThatIsSelected) {
  putImage(outside("/b.png"));
  putList({"Other**/nowhere", "Textures**" + textures()});
  click("choose dropdownlist #2\n" + answer(outside("/b.png")) +
        "click \"Import file\"\nexpect dropdownlist selected \"[Textures] \"\nexpect iconbutton#2 shown\nclose\n");
  EXPECT_THAT(namesIn(textures()), ElementsAre("a.png", "b.png"));
}

TEST_F(GalleryCommands, ImportNothing) {
  const Opened opened = click("answer cancel\nclick \"Import file\"\nanswer cancel\nclick \"Import folder\"\nclose\n");
  EXPECT_EQ(opened.result, "");
  EXPECT_THAT(namesIn(textures()), ElementsAre("a.png"));
  EXPECT_FALSE(exists(shared("Import")));
}

TEST_F(GalleryCommands, ImportOverAFileOnlyWhenTheUserWants) {
  putImage(outside("/a.png"), {1, 2, 3});
  click("close\n");
  const std::string before = contentsOf(textures("/a.png"));
  click("reply no\n" + answer(outside("/a.png")) + "click \"Import file\"\nclose\n");
  EXPECT_EQ(contentsOf(textures("/a.png")), before);
  const std::string thumbnail = thumbnailOf(textures("/a.png"));
  EXPECT_TRUE(exists(thumbnail));
  click("reply yes\n" + answer(outside("/a.png")) + "click \"Import file\"\nexpect iconbutton image \"" +
        textures("/a.png") + "\"\nclose\n");
  EXPECT_EQ(contentsOf(textures("/a.png")), contentsOf(outside("/a.png")));
  // A file of the library itself is there already.
  click(answer(textures("/a.png")) + "click \"Import file\"\nexpect no alert\nclose\n");
  EXPECT_EQ(contentsOf(textures("/a.png")), contentsOf(outside("/a.png")));
}

TEST_F(GalleryCommands, ImportAFolder) {
  put(shared("config.txt"), "baseFolder: " + folder.path("all/Quiltor") + "\r\naddFolder1: " + textures() + "\r\n");
  for (const char* name : {"/b.png", "/x/y/c.JPEG", "/x/d.jpg", "/.cache/e.png"}) putImage(outside(name));
  put(outside("/notes.txt"), "");
  const Opened opened =
      click(answer(outside()) +
            "click \"Import folder\"\nexpect no alert\n"
            "expect dropdownlist items 4\nexpect dropdownlist selected \"[Textures] \"\n"
            "choose dropdownlist \"[Quiltor] Import | Outside | x\"\nexpect iconbutton shown\nclose\n");
  EXPECT_EQ(opened.result, "");
  EXPECT_THAT(opened.printed, HasSubstr("choose folder: Select a folder to import"));
  EXPECT_THAT(namesIn(shared("Import")), ElementsAre("Outside"));
  EXPECT_THAT(namesIn(shared("Import/Outside")), ElementsAre("b.png", "x"));
  EXPECT_THAT(namesIn(shared("Import/Outside/x")), ElementsAre("d.jpg", "y"));
  EXPECT_THAT(namesIn(shared("Import/Outside/x/y")), ElementsAre("c.JPEG"));
  EXPECT_EQ(contentsOf(shared("Import/Outside/x/d.jpg")), contentsOf(outside("/x/d.jpg")));
}

TEST_F(GalleryCommands, ImportTellsWhatCouldNotBeCopied) {
  putImage(outside("/b.png"));
  click(
      "option unwritable \"" + textures() + "\"\n" + answer(outside("/b.png")) +
      "click \"Import file\"\nexpect alert \"Error copying, please check permissions. Files that were not copied: 1\"\n"
      "expect no alert\nclose\n");
  EXPECT_THAT(namesIn(textures()), ElementsAre("a.png"));
}

}  // namespace
}  // namespace quiltor
