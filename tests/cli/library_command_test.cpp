#include <gmock/gmock.h>

#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "formats/image_file.h"
#include "formats/test_pattern_reading.h"
#include "library/files/read_text.h"
#include "standalone/cli/line_text.h"
#include "tests/cli/command_line_run.h"

namespace quiltor::standalone {
namespace {

using testing::EndsWith;
using testing::HasSubstr;
using testing::StartsWith;
namespace fs = std::filesystem;

class LibraryCommandTest : public CommandLineTest {
 protected:
  static constexpr uint8_t kRed = 200;

  LibraryCommandTest() {
    picture("a.png");
    picture("wood/b.png");
    writeBytes(textures + "/walls.pat", TestPatternFile{.patterns = {greyPattern(), rgbPattern()}}.bytes());
  }

  void picture(const std::string& name) const {
    const std::string path = textures + "/" + name;
    fs::create_directories(fs::path(path).parent_path());
    ASSERT_EQ(SavePngImage(path, {1, 1, 3, {kRed, 0, 0}}), 0);
  }

  static Outcome library(std::vector<std::string> words) {
    words.insert(words.begin(), "library");
    const Outcome outcome = run(words);
    return {outcome.status, withSlashes(outcome.out), withSlashes(outcome.err)};
  }

  void expectFailure(const std::vector<std::string>& words, int status, const std::string& problem) {
    const Outcome outcome = library(words);
    EXPECT_EQ(outcome.status, status);
    EXPECT_EQ(outcome.err, "quiltor: " + problem + "\n");
    EXPECT_EQ(outcome.out, "");
  }

  const std::string textures = folder.path("Textures");
  const std::string shared = folder.path("all/Quiltor"), own = folder.path("user/Quiltor");
  const std::string sheet = folder.path("sheet.png");
};

TEST_F(LibraryCommandTest, scanWritesTheSettingsAndTheListOfAllUsers) {
  const Outcome outcome = library({"scan", textures + "/"});
  EXPECT_EQ(outcome.status, 0) << outcome.err;
  EXPECT_THAT(withSlashes(readWholeFile(shared + "/config.txt")),
              StartsWith("baseFolder: " + shared + "\r\naddFolder1: " + textures + "\r\naddFolder2: [not set]\r\n"));
  EXPECT_EQ(withSlashes(readWholeFile(shared + "/libpaths.txt")),
            "Textures**" + textures + "\r\nTextures*wood*" + textures + "/wood\r\n");
  EXPECT_FALSE(fs::exists(own));
  EXPECT_THAT(outcome.out, HasSubstr("2 libraries, 2 pictures\nWritten to " + shared));
}

TEST_F(LibraryCommandTest, scanKeepsTheSettingsThatItIsNotTold) {
  library({"scan", textures, "--flatten", "--no-cloud"});
  picture("stone/c.png");
  const Outcome outcome = library({"scan"});
  EXPECT_EQ(outcome.status, 0) << outcome.err;
  EXPECT_THAT(outcome.out, HasSubstr("3 libraries, 3 pictures"));
  EXPECT_THAT(withSlashes(readWholeFile(shared + "/config.txt")),
              testing::AllOf(HasSubstr("addFolder1: " + textures), HasSubstr("loadFromCloud: false"),
                             HasSubstr("flattenSubfolders: true")));
}

TEST_F(LibraryCommandTest, scanWritesForThisUserUntilToldOtherwise) {
  library({"scan", textures, "--this-user"});
  EXPECT_FALSE(fs::exists(shared));
  library({"scan"});
  EXPECT_FALSE(fs::exists(shared));
  EXPECT_TRUE(fs::exists(own + "/libpaths.txt"));
  library({"scan", "--all-users"});
  EXPECT_TRUE(fs::exists(shared + "/libpaths.txt"));
  EXPECT_FALSE(fs::exists(own + "/libpaths.txt"));
  EXPECT_FALSE(fs::exists(own + "/config.txt"));
}

TEST_F(LibraryCommandTest, scanWritesForThisUserWhatAllUsersCannotHave) {
  std::ofstream(folder.path("all")) << "in the way";
  const Outcome outcome = library({"scan", textures});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.err,
            "quiltor: Error saving to all users folder, please check permissions. Now writing to this user's folder "
            "instead.\n");
  EXPECT_TRUE(fs::exists(own + "/libpaths.txt"));
  fs::remove_all(folder.path("user"));
  std::ofstream(folder.path("user")) << "in the way";
  const Outcome failed = library({"scan", textures});
  EXPECT_EQ(failed.status, 1);
  EXPECT_EQ(failed.err, "quiltor: Error saving to user's folder, please check permissions.\n");
}

TEST_F(LibraryCommandTest, scanRefusesWhatIsNoFolderOfALibrary) {
  expectFailure({"scan", textures, folder.path("none")}, 1, folder.path("none") + ": no such folder");
  expectFailure({"scan", "a", "b", "c", "d", "e"}, 2,
                "library scan: the settings hold at most 4 folders, not 5; name a folder above several of them");
  EXPECT_FALSE(fs::exists(shared));
}

TEST_F(LibraryCommandTest, listCountsThePicturesOfEachLibrary) {
  library({"scan", textures});
  fs::remove_all(textures + "/wood");
  const Outcome outcome = library({"list"});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.out,
            "LIBRARY          PICTURES  FOLDER\n"
            "[Textures]              1  " +
                textures + "\n" + "[Textures] wood         0  " + textures + "/wood (no such folder)\n\n" +
                "2 libraries, 1 picture\n");
}

TEST_F(LibraryCommandTest, listHidesThumbnailsAndSaysWhenThereIsNoListYet) {
  const Outcome empty = library({"list"});
  EXPECT_THAT(empty.out, HasSubstr("[Quiltor]"));
  EXPECT_THAT(empty.out, EndsWith("There is no list of libraries yet; `quiltor library scan FOLDER...` writes it.\n"));
  fs::create_directories(own);
  std::ofstream(own + "/libpaths.txt") << "Textures**" << textures << "\r\nTextures*.cache*" << textures << "/wood\r\n";
  EXPECT_THAT(library({"list"}).out, testing::AllOf(HasSubstr("1 library, 1 picture"), Not(HasSubstr(".cache"))));
}

TEST_F(LibraryCommandTest, listShowsLinesThatLackFields) {
  fs::create_directories(own);
  std::ofstream(own + "/libpaths.txt") << "Textures\r\n*\x1b[2J*" << textures << "\r\n";
  EXPECT_EQ(library({"list"}).out,
            "LIBRARY     PICTURES  FOLDER\n"
            "[Textures]         0   (no such folder)\n"
            "[]  [2J            1  " +
                textures + "\n\n2 libraries, 1 picture\n");
}

TEST_F(LibraryCommandTest, listTellsThatTheGalleryAndTheConversionReadDifferentLists) {
  library({"scan", textures, "--all-users"});
  library({"scan", textures, "--this-user"});
  const Outcome outcome = library({"list"});
  EXPECT_EQ(outcome.err, "quiltor: two lists: the gallery reads " + own + "/libpaths.txt, the conversion " + shared +
                             "/libpaths.txt; scanning with --all-users leaves one\n");
}

TEST_F(LibraryCommandTest, convertMakesPicturesOfPatternsAndThumbnails) {
  library({"scan", textures});
  testing::internal::CaptureStdout();
  const Outcome outcome = library({"convert"});
  EXPECT_EQ(testing::internal::GetCapturedStdout(), "");
  EXPECT_EQ(outcome.status, 0) << outcome.err;
  EXPECT_THAT(outcome.out, EndsWith(" files looked through, 4 pictures made, 0 failures\n"));
  EXPECT_TRUE(fs::exists(shared + "/PS Patterns/walls/walls_01.png"));
  EXPECT_EQ(std::distance(fs::directory_iterator(shared + "/.cache"), {}), 2);
  // The patterns are a library of their own from the next scan on.
  EXPECT_THAT(library({"scan"}).out, HasSubstr("[Quiltor] PS Patterns | walls"));
}

TEST_F(LibraryCommandTest, convertTakesAFolderOfNothingButPatterns) {
  fs::remove(textures + "/a.png");
  fs::remove_all(textures + "/wood");
  EXPECT_THAT(library({"scan", textures}).out, HasSubstr("0 libraries"));
  EXPECT_EQ(library({"convert"}).out, "1 file looked through, 2 pictures made, 0 failures\n");
  EXPECT_THAT(library({"scan"}).out, HasSubstr("[Quiltor] PS Patterns | walls"));
}

TEST_F(LibraryCommandTest, convertTellsOfFailuresAndWhereTheyAreNamed) {
  library({"scan", textures});
  std::ofstream(shared + "/.cache") << "in the way";
  const Outcome outcome = library({"convert"});
  EXPECT_EQ(outcome.status, 1);
  EXPECT_THAT(outcome.out, EndsWith(", 2 failures\n"));
  EXPECT_EQ(outcome.err, "quiltor: 2 failures; a log is kept where the folder of " + own + "/log.txt exists\n");
  fs::create_directories(own);
  EXPECT_EQ(library({"convert"}).err, "quiltor: 2 failures; " + own + "/log.txt tells which\n");
  EXPECT_THAT(readWholeFile(own + "/log.txt"), HasSubstr("Error saving '"));
}

TEST_F(LibraryCommandTest, convertNamesWhatItCannotReadOnce) {
  library({"scan", textures});
  std::ofstream(textures + "/wood/b.png") << "no picture";
  TestPattern bitmap = greyPattern(u"Old film");
  bitmap.mode = 0;
  // Below a library and a configured folder, so that it is met twice.
  writeBytes(textures + "/old.pat", TestPatternFile{.patterns = {bitmap}}.bytes());
  const Outcome outcome = library({"convert"});
  EXPECT_EQ(outcome.status, 1);
  EXPECT_THAT(outcome.out, EndsWith(", 3 pictures made, 2 failures\n"));
  EXPECT_EQ(outcome.err, "quiltor: " + textures +
                             "/old.pat: 1st pattern \"Old film\": its image mode is not grey, indexed, RGB or CMYK\n" +
                             "quiltor: " + textures + "/wood/b.png: no picture can be read from it\n");
}

TEST_F(LibraryCommandTest, convertNeedsAList) {
  expectFailure({"convert"}, 1,
                "there is no library to convert; `quiltor library scan FOLDER...` lists those below a folder");
}

TEST_F(LibraryCommandTest, sheetShowsTheKeptThumbnailsOrMakesThem) {
  library({"scan", textures});
  ASSERT_EQ(library({"sheet", "wood", "-o", sheet}).status, 0);
  PatternImage made, kept;
  ASSERT_EQ(LoadPngImage(sheet, made), 0);
  std::size_t red = 0;
  for (std::size_t i = 0; i < made.pixels.size(); i += 4) red += made.pixels[i] == kRed && made.pixels[i + 1] == 0;
  EXPECT_EQ(red, 100u * 100u);
  library({"convert"});
  // From now on the picture itself is not asked.
  fs::resize_file(textures + "/wood/b.png", 0);
  ASSERT_EQ(library({"sheet", "wood", "-o", sheet}).status, 0);
  ASSERT_EQ(LoadPngImage(sheet, kept), 0);
  EXPECT_EQ(made.pixels, kept.pixels);
}

TEST_F(LibraryCommandTest, sheetShowsThePatternsOfAFileInTheirOrder) {
  TestPatternFile file;
  for (uint8_t i = 0; i < 101; ++i) {
    file.patterns.push_back(greyPattern());
    file.patterns.back().planes[0].samples = {i, i};
  }
  writeBytes(textures + "/walls.pat", file.bytes());
  library({"scan", textures});
  library({"convert"});
  library({"scan"});
  ASSERT_EQ(library({"sheet", "walls", "-o", sheet}).status, 0);
  PatternImage made;
  ASSERT_EQ(LoadPngImage(sheet, made), 0);
  // A pixel of each thumbnail: 13 in a row.
  std::vector<int> shown, inOrder;
  for (std::size_t i = 0; i < file.patterns.size(); ++i) {
    const std::size_t x = 30 + i % 13 * 124, y = 90 + i / 13 * 148;
    shown.push_back(made.pixels.at((y * static_cast<std::size_t>(made.width) + x) * 4));
    inOrder.push_back(static_cast<int>(i));
  }
  EXPECT_EQ(shown, inOrder);
}

TEST_F(LibraryCommandTest, sheetIsWrittenOnlyForALibraryWithPictures) {
  library({"scan", textures});
  fs::remove(textures + "/wood/b.png");
  expectFailure({"sheet", "wood", "-o", sheet}, 1, "[Textures] wood: no pictures in " + textures + "/wood");
  expectFailure({"sheet", "wod", "-o", sheet}, 2, "\"wod\": no such library; did you mean \"wood\"?");
  expectFailure({"sheet", "Textures", "-o", sheet + ".jpg"}, 2,
                "--output: " + sheet + ".jpg: expected a name that ends in .png");
  expectFailure({"sheet", "Textures", "-o", folder.path("none/sheet.png")}, 1,
                "cannot write " + folder.path("none/sheet.png") + ": no such folder, no permission or no room");
  EXPECT_FALSE(fs::exists(sheet));
}

TEST_F(LibraryCommandTest, asksForOneOfItsCommands) {
  expectFailure({}, 2, "expected library list, scan, convert or sheet; --help explains them");
  expectFailure({"scna"}, 2, "\"scna\": no such command; did you mean \"scan\"?");
  expectFailure({"scan", "--flaten"}, 2, "\"--flaten\": no such option; did you mean \"--flatten\"?");
}

#ifndef _WIN32  // there are no such names
using LinuxLibraryCommand = LibraryCommandTest;

TEST_F(LinuxLibraryCommand, scanRefusesANameThatTheListCannotHold) {
  fs::create_directory(folder.path("a*b"));
  expectFailure({"scan", folder.path("a*b")}, 1,
                standalone::quoted(folder.path("a*b")) +
                    ": a folder of the library cannot have a \"*\" or a line break in its path");
  EXPECT_FALSE(fs::exists(shared));
}

TEST_F(LinuxLibraryCommand, scanNamesTheFoldersThatTheListCannotHold) {
  picture("a*b/c.png");
  const Outcome outcome = library({"scan", textures});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.err, "quiltor: \"" + textures + "/a*b\": left out, since the list cannot hold such a name\n");
}
#endif

}  // namespace
}  // namespace quiltor::standalone
