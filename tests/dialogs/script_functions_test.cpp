#include <filesystem>
#include <random>
#include <sstream>
#include <string>
#include <vector>

#include "library/cache_names.h"
#include "library/files/text_pieces.h"
#include "tests/dialogs/dialogs_test.h"
#include "ui/script_text.h"

namespace quiltor {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing_support::DialogsTest;

// The script of the gallery without the host that asks for it.
class GalleryScript : public DialogsTest {
 protected:
  // The text of the script as the module hands it to a host.
  std::string script() {
    std::string text;
    putList({"a**b"});
    host.options().runScript = [&](const std::string& given) {
      text = given;
      return standalone::ScriptOutcome();
    };
    instance.clickedByUser(Param::txtsrc);
    host.options().runScript = nullptr;
    return text;
  }

  // All in one engine, as in the host. Gives the last one's result.
  static std::string run(const std::vector<std::string>& scripts, const std::string& steps) {
    std::ostringstream printed;
    standalone::DialogOptions options;
    options.steps = steps;
    options.out = &printed;
    standalone::Dialogs dialogs(options);
    std::string result;
    for (const std::string& text : scripts) result = dialogs.run(text).result;
    EXPECT_THAT(dialogs.complaints(), IsEmpty()) << printed.str();
    return result;
  }
};

std::string withoutCall(const std::string& script) { return script.substr(0, script.rfind("galleryDlg();")); }

TEST_F(GalleryScript, NamesThumbnailsAsTheConversionDoes) {
  std::mt19937 random(20);
  std::uniform_int_distribution<int> length(0, 200), kind(0, 9), printable(32, 126), any(1, 0xFFFF);
  std::vector<std::string> paths = {"",     "/", "\\", "C:\\My Folder\\a b.png", "/home/\xC3\xA4/\xF0\x9F\xA7\xB1.png",
                                    "~\x7F"};
  while (paths.size() < 10'000) {
    std::u32string path;
    for (int i = length(random); i > 0; --i) {
      const int unit = kind(random) == 0 ? any(random) : printable(random);
      path += unit >= 0xD800 && unit < 0xE000 ? U'\U0001F9F1' : static_cast<char32_t>(unit);
    }
    std::string utf8;
    for (const char32_t c : path) {
      if (c < 0x80) {
        utf8 += static_cast<char>(c);
      } else if (c < 0x800) {
        utf8 += {static_cast<char>(0xC0 | c >> 6), static_cast<char>(0x80 | (c & 63))};
      } else if (c < 0x10000) {
        utf8 += {static_cast<char>(0xE0 | c >> 12), static_cast<char>(0x80 | (c >> 6 & 63)),
                 static_cast<char>(0x80 | (c & 63))};
      } else {
        utf8 += {static_cast<char>(0xF0 | c >> 18), static_cast<char>(0x80 | (c >> 12 & 63)),
                 static_cast<char>(0x80 | (c >> 6 & 63)), static_cast<char>(0x80 | (c & 63))};
      }
    }
    paths.push_back(std::move(utf8));
  }
  std::string text = withoutCall(script()) + "var hashes = [];\n", expected;
  for (const std::string& path : paths) {
    text += "hashes.push(pathHash(\"" + literalText(path) + "\"));\n";
    expected += std::to_string(pathHash(path)) + " ";
  }
  EXPECT_EQ(run({text + "hashes.join(\" \") + \" \";\n"}, ""), expected);
}

TEST_F(GalleryScript, DoesNotMindWhatOtherScriptsLeftBehind) {
  putImages(folder.path("Textures"), 2);
  const std::string gallery = script();
  putList({"Textures**" + folder.path("Textures")});
  const std::string before =
      "var result = \"other\", config = 7, libs = null, btns = 7, res = \"x\", _refresh = true;\n"
      "var _ofs = 9, _nof_pages = 0, gallery = \"\", allUsers = 0;\n"
      "Array.prototype.added = function () {};\n";
  EXPECT_EQ(run({before, gallery}, "expect iconbutton#2 shown\nexpect iconbutton#3 hidden\nclick iconbutton\n"),
            folder.path("Textures") + "/000.png*Textures**" + folder.path("Textures") + "*");
}

TEST_F(GalleryScript, RunsTwiceInOneEngine) {
  putImages(folder.path("Textures"), 2);
  const std::string gallery = script();
  putList({"Textures**" + folder.path("Textures")});
  const std::string pick = folder.path("Textures") + "/001.png*Textures**" + folder.path("Textures") + "*";
  EXPECT_EQ(run({gallery, gallery}, "click iconbutton#1\nexpect iconbutton#2 shown\nclick iconbutton#2\n"), pick);
  EXPECT_EQ(run({gallery, gallery}, "click iconbutton#1\nclose\n"), "");
}

// With the names that paths have in Windows.
TEST_F(GalleryScript, SpeaksOfPathsAsWindowsDoes) {
  const std::string gallery = script(), drive = folder.path("windows/c");
  putImage(drive + "/My Pictures/T\xC3\xA4x/a%41.png");
  putImage(drive + "/My Pictures/T\xC3\xA4x/sub/b.png");
  put(drive + "/Users/user/AppData/Roaming/Quiltor/config.txt", "addFolder1: C:\\My Pictures\\T\xC3\xA4x\r\n");
  put(drive + "/Users/user/AppData/Roaming/Quiltor/libpaths.txt", "Old**C:\\nowhere\r\n");
  const std::string path = "C:\\My Pictures\\T\xC3\xA4x";
  putImage(drive + "/ProgramData/Quiltor/.cache/" + std::to_string(pathHash(path + "\\a%41.png")) + ".png");
  const std::string steps = "option windows-names \"" + folder.path("windows") +
                            "\"\nclick \"Refresh\"\n"
                            "expect dropdownlist items 2\nexpect iconbutton image \"" +
                            drive + "/ProgramData/Quiltor/.cache/" + std::to_string(pathHash(path + "\\a%41.png")) +
                            ".png\"\nclick iconbutton\n";
  EXPECT_EQ(run({gallery}, steps), path + "\\a%41.png*T\xC3\xA4x**" + path + "*UPD");
  EXPECT_EQ(contentsOf(drive + "/Users/user/AppData/Roaming/Quiltor/libpaths.txt"),
            "T\xC3\xA4x**" + path + "\r\nT\xC3\xA4x*sub*" + path + "\\sub\r\n");
}

// The path of a drive alone ends in a separator, and that of a folder does not.
TEST_F(GalleryScript, ImportsAWholeDrive) {
  const std::string gallery = script(), import = folder.path("windows/c/ProgramData/Quiltor/Import");
  putImage(folder.path("windows/e/a.png"));
  putImage(folder.path("windows/e/sub/b.png"));
  put(folder.path("windows/c/Users/user/AppData/Roaming/Quiltor/libpaths.txt"), "Old**C:\\nowhere\r\n");
  run({gallery}, "option windows-names \"" + folder.path("windows") + "\"\nanswer \"" + folder.path("windows/e") +
                     "\"\nclick \"Import folder\"\nexpect no alert\nexpect dropdownlist items 2\n"
                     "expect dropdownlist selected \"[Quiltor] Import | E\"\nclose\n");
  EXPECT_THAT(namesIn(import), ElementsAre("E"));
  EXPECT_THAT(namesIn(import + "/E"), ElementsAre("a.png", "sub"));
  EXPECT_THAT(namesIn(import + "/E/sub"), ElementsAre("b.png"));
}

}  // namespace
}  // namespace quiltor
