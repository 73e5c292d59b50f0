#include <filesystem>

#include "tests/dialogs/dialogs_test.h"

namespace quiltor {
namespace {

using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing_support::DialogsTest;

// One library, the folder Textures.
class GalleryTest : public DialogsTest {
 protected:
  std::string textures(const std::string& name = "") const { return folder.path("Textures" + name); }
  std::string line() const { return "Textures**" + textures(); }

  static std::string expectImage(int button, const std::string& path) {
    return "expect iconbutton#" + std::to_string(button) + " image \"" + path + "\"\n";
  }
  static std::string expectPage(const std::string& label, bool previous, bool next) {
    const auto state = [](bool enabled) { return enabled ? " enabled\n" : " disabled\n"; };
    return "expect statictext text \"" + label + "\"\nexpect \"<\"" + state(previous) + "expect \">\"" + state(next);
  }
  static size_t drawnIn(const std::string& tree) {
    size_t count = 0;
    for (size_t at = 0; (at = tree.find("drawn=\"control, image 50x50\"", at)) != std::string::npos; ++at) ++count;
    return count;
  }
};

TEST_F(GalleryTest, OpensWhereThereIsAList) {
  putImages(textures(), 3);
  putList({line(), "Other*a | b*/nowhere"});
  const Opened opened = click(
      "dialog \"Select Texture\"\nexpect dropdownlist items 2\n"
      "expect dropdownlist selected \"[Textures] \"\nexpect dropdownlist focused\n" +
      expectPage("1/1", false, false) +
      "choose dropdownlist \"[Other] a | b\"\n"
      "expect iconbutton hidden\nclose\nexpect no alert\n");
  EXPECT_TRUE(opened.handled);
  EXPECT_EQ(opened.result, "");
  EXPECT_EQ(opened.outFlags & PF_OutFlag_FORCE_RERENDER, 0);
}

TEST_F(GalleryTest, SetsItsRowsApart) {
  putList({line()});
  const Opened opened = click("expect @row_0\nexpect @row_4\ntree\nclose\n");
  // Seven buttons of 50 by 50, six gaps and two margins of 5.
  for (int row = 0; row < 5; ++row) {
    EXPECT_THAT(opened.printed,
                testing::ContainsRegex("group @row_" + std::to_string(row) + " [0-9]+,[0-9]+ 390x60\n"));
  }
}

// The number of images, of pages, and how many are shown on the last.
struct Pages {
  int images, pages, onLast;
};

class GalleryPages : public GalleryTest, public testing::WithParamInterface<Pages> {};

TEST_P(GalleryPages, AreFullOnes) {
  const auto [images, pages, onLast] = GetParam();
  putImages(textures(), images);
  putList({line()});
  std::string steps;
  for (int page = 1; page <= pages; ++page) {
    steps += expectPage(std::to_string(page) + "/" + std::to_string(pages), page > 1, page < pages);
    if (images > 0) {
      const std::string first = std::to_string(1000 + (page - 1) * 35).substr(1);
      steps += expectImage(1, thumbnailOf(textures("/" + first + ".png")));
    }
    if (page < pages) steps += "click \">\"\n";
  }
  for (int button = 1; button <= 35; ++button) {
    steps += "expect iconbutton#" + std::to_string(button) + (button <= onLast ? " shown\n" : " hidden\n");
  }
  steps += "tree\n";
  for (int page = pages; page > 1; --page) steps += "click \"<\"\n";
  const Opened opened = click(steps + expectPage("1/" + std::to_string(pages), false, pages > 1) + "close\n");
  EXPECT_EQ(drawnIn(opened.printed), static_cast<size_t>(onLast));
}

INSTANTIATE_TEST_SUITE_P(OfSoManyImages, GalleryPages,
                         testing::Values(Pages{0, 1, 0}, Pages{1, 1, 1}, Pages{34, 1, 34}, Pages{35, 1, 35},
                                         Pages{36, 1, 35}, Pages{70, 2, 35}, Pages{120, 3, 35}),
                         [](const auto& test) { return std::to_string(test.param.images); });

TEST_F(GalleryTest, BeginsEachLibraryWithItsFirstPage) {
  putImages(textures(), 70);
  putImages(folder.path("Stone"), 105);
  putList({line(), "Stone**" + folder.path("Stone")});
  click("click \">\"\nchoose dropdownlist #2\n" + expectPage("1/3", false, true) + "click \">\"\n" +
        expectPage("2/3", true, true) + "choose dropdownlist #1\n" + expectPage("1/2", false, true) + "close\n");
}

TEST_F(GalleryTest, ShowsThumbnailsWhereThereAreSome) {
  for (const char* name : {"/a.png", "/b \xC3\xA4%41.png", "/c.png"}) putImage(textures(name));
  put(textures("/d.png"), "no picture");
  putList({line()});
  click("close\n");
  std::filesystem::remove(thumbnailOf(textures("/c.png")));
  put(thumbnailOf(textures("/b \xC3\xA4%41.png")), "no picture");
  // A conversion that runs beside the dialog would make what is missing: there is none without the list of all users.
  std::filesystem::rename(shared("libpaths.txt"), folder.path("list"));
  const std::string steps = expectImage(1, thumbnailOf(textures("/a.png"))) +
                            expectImage(2, textures("/b \xC3\xA4%41.png")) + expectImage(3, textures("/c.png")) +
                            "expect iconbutton#4 image \"\"\n"
                            "expect iconbutton#4 shown\ntree\nclose\n";
  put(folder.path("user/Quiltor/libpaths.txt"), line() + "\n");
  put(shared("libpaths.txt"), "");
  EXPECT_EQ(drawnIn(click(steps).printed), 3u);
}

TEST_F(GalleryTest, GivesThePickWithItsLibrary) {
  putImages(textures(), 3);
  putList({"Stone*x*/nowhere", "Textures*a | b*" + textures()});
  const Opened opened = click("choose dropdownlist #2\nclick iconbutton#2\nexpect closed\n");
  EXPECT_EQ(opened.result, textures("/001.png") + "*Textures*a | b*" + textures() + "*");
  EXPECT_NE(opened.outFlags & PF_OutFlag_FORCE_RERENDER, 0);
}

TEST_F(GalleryTest, SelectsTheLibraryThatWasPickedFrom) {
  const std::string name = "a \"b\" \\ 'c' #v1 \xC3\xA4";
  putImages(textures(), 1);
  putList({"Stone*x*/nowhere", "Te\"x*y*/nowhere", "Te\"x*" + name + "*" + textures()});
  click("choose dropdownlist #3\nclick iconbutton\n");
  const Opened opened = click("expect iconbutton shown\ntree\nclose\n");
  EXPECT_THAT(opened.printed, HasSubstr("selected=\"[Te\\\"x] a \\\"b\\\" \\\\ 'c' #v1 \xC3\xA4\""));
}

TEST_F(GalleryTest, ReadsWhatItCanOfTheList) {
  putImages(textures(), 2);
  putList({"only a label", "", "Cached*x.cachex*" + textures(), "two*fields", line() + "*and*more"});
  click(
      "expect dropdownlist items 3\nexpect dropdownlist selected \"[only a label] \"\nexpect \"Import file\" disabled\n"
      "choose dropdownlist \"[two] fields\"\nexpect iconbutton hidden\nclick \"Show folder in OS\"\n"
      "choose dropdownlist \"[Textures] \"\nexpect iconbutton#2 shown\nclose\nexpect no alert\n");
}

TEST_F(GalleryTest, ReadsTheUsersListFirst) {
  putList({"Shared**/nowhere"});
  put(own("libpaths.txt"), "Own**/nowhere");
  click("expect dropdownlist items 1\nexpect dropdownlist selected \"[Own] \"\nclose\n");
}

TEST_F(GalleryTest, DoesNotOpenWithoutLibraries) {
  for (const std::vector<std::string>& lines : {std::vector<std::string>{}, {"A*.cache*/nowhere"}}) {
    putList(lines);
    for (const char* option : {"option change-events always", "option change-events shown"}) {
      click(std::string(option) +
            "\nexpect alert \"No paths found, please open the config dialog and set them!\"\n"
            "expect no alert\nexpect result \"\"\n");
    }
  }
}

TEST_F(GalleryTest, ShowsTheSameWhateverTheHostDoesDifferently) {
  putImages(textures(), 40);
  putList({"Other**/nowhere", line()});
  for (const char* option : {"order reversed", "order shuffled", "change-events shown", "change-events always",
                             "close-in-onshow ignored", "writing denied"}) {
    click(std::string("option ") + option + "\nexpect iconbutton hidden\nchoose dropdownlist #2\n" +
          expectImage(1, thumbnailOf(textures("/000.png"))) + expectImage(35, thumbnailOf(textures("/034.png"))) +
          expectPage("1/1", false, false) + "close\nexpect no alert\n");
  }
}

TEST_F(GalleryTest, ShowsImagesBelowAFlattenedLibrary) {
  for (const char* name : {"/a.png", "/b/c.JPG.png", "/b/d/e.png", "/.cache/f.png", "/b/.cache/g.png"}) {
    putImage(textures(name));
  }
  put(shared("config.txt"), "flattenSubfolders: true");
  putList({line()});
  click("choose dropdownlist #1\nexpect iconbutton#3 shown\nexpect iconbutton#4 hidden\n" +
        expectImage(2, textures("/b/c.JPG.png")) + expectImage(3, textures("/b/d/e.png")) + "close\n");
}

TEST_F(GalleryTest, IsWorkedByTheKeyboardAlone) {
  putImages(textures(), 80);
  putList({"Other**/nowhere", line()});
  std::string steps = "press Down\nexpect dropdownlist selected \"[Textures] \"\n";
  for (const char* button : {"Refresh", "Show folder in OS", "Import file", "Import folder"}) {
    steps += std::string("press Tab\nexpect \"") + button + "\" focused\n";
  }
  steps += "press Tab\nexpect iconbutton#1 focused\npress Shift+Tab\n";
  for (int i = 0; i < 36; ++i) steps += "press Tab\n";
  const Opened opened = click(steps +
                              "expect \">\" focused\npress Space\nexpect statictext text \"2/2\"\n"
                              "expect iconbutton#35 shown\ntree\npress Tab\npress Tab\n"
                              "press Shift+Tab\npress Shift+Tab\npress Shift+Tab\n"
                              "press Escape\n");
  EXPECT_EQ(opened.result, "");
  EXPECT_EQ(click("press Down\npress Tab\npress Tab\npress Tab\npress Tab\npress Tab\npress Tab\npress Space\n").result,
            textures("/001.png") + "*Textures**" + textures() + "*");
}

class VideoEditorDialogsTest : public DialogsTest {
 protected:
  VideoEditorDialogsTest() : DialogsTest(kAppId_PremierePro) {}
};

TEST_F(VideoEditorDialogsTest, AreNotRun) {
  putList({"Textures**/nowhere"});
  EXPECT_FALSE(click("").ran);
  EXPECT_FALSE(openSettings("").ran);
}

}  // namespace
}  // namespace quiltor
