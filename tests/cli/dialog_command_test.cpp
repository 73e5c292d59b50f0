#include <gmock/gmock.h>

#include <chrono>
#include <filesystem>
#include <fstream>

#include "formats/image_file.h"
#include "standalone/validate/child_process.h"
#include "tests/cli/command_line_run.h"

namespace quiltor::standalone {
namespace {

using testing::HasSubstr;
using testing::StartsWith;

// The commands that open the dialogs, with steps in the place of a person. The library of the dialogs lies beside the
// module.
class DialogCommandTest : public CommandLineTest {
 protected:
  DialogCommandTest() {
    std::filesystem::create_directories(textures);
    EXPECT_EQ(SavePngImage(textures + "/red.png", {2, 2, 3, std::vector<uint8_t>(12, 200)}), 0);
  }

  std::string steps(const std::string& text) const {
    std::ofstream(folder.path("steps")) << text;
    return folder.path("steps");
  }

  Outcome setUpLibrary() const {
    return runModule({"settings", "--headless", steps("answer " + textures + "\nclick \"Set\"\nclick \"OK\"\n")});
  }

  const std::string textures = folder.path("Textures");
};

TEST_F(DialogCommandTest, settingsPrintWhatWasSaved) {
  const Outcome outcome = setUpLibrary();
  EXPECT_EQ(outcome.status, 0) << outcome.err;
  EXPECT_THAT(outcome.out,
              StartsWith("choose folder: Select a folder\nsaved\nbaseFolder: " + folder.path("all/Quiltor")));
  EXPECT_THAT(outcome.out, HasSubstr("addFolder1: " + textures + "\n"));
  EXPECT_TRUE(std::filesystem::exists(folder.path("all/Quiltor/libpaths.txt")));
}

TEST_F(DialogCommandTest, cancelledSettingsSayThatNothingWasSaved) {
  const Outcome outcome = runModule({"settings", "--headless", steps("press Escape")});
  EXPECT_EQ(outcome.status, 0) << outcome.err;
  EXPECT_EQ(outcome.out, "nothing was saved\n");
}

TEST_F(DialogCommandTest, galleryPrintsThePickRendersItAndKeepsIt) {
  setUpLibrary();
  ASSERT_EQ(SavePngImage(folder.path("layer.png"), {4, 4, 3, std::vector<uint8_t>(48, 10)}), 0);
  const Outcome outcome =
      runModule({"gallery", "--headless", steps("dialog \"Select Texture\"\nclick iconbutton#1\n"), "--render",
                 folder.path("layer.png"), "-o", folder.path("out.png"), "--project", folder.path("project")});
  EXPECT_EQ(outcome.status, 0) << outcome.err;
  EXPECT_EQ(outcome.out, "picked " + textures + "/red.png\nfrom [Textures]\n");
  EXPECT_TRUE(std::filesystem::exists(folder.path("out.png")));
  EXPECT_GT(std::filesystem::file_size(folder.path("project")), 0U);
  const Outcome again =
      runModule({"gallery", "--headless", steps("expect dropdownlist selected \"[Textures] \"\nclose\n"), "--project",
                 folder.path("project")});
  EXPECT_EQ(again.status, 0) << again.err;
  EXPECT_EQ(again.out, "nothing was picked\n");
}

TEST_F(DialogCommandTest, aClickOpensTheSettingsWhileThereIsNoLibrary) {
  const Outcome outcome =
      runModule({"gallery", "--headless", steps("dialog \"Quiltor Settings\"\nclick \"Cancel\"\n")});
  EXPECT_EQ(outcome.status, 0) << outcome.err;
}

TEST_F(DialogCommandTest, takesAPictureAndClosesTheDialog) {
  const Outcome outcome = runModule({"settings", "--screenshot", folder.path("s.png")});
  EXPECT_EQ(outcome.status, 0) << outcome.err;
  EXPECT_GT(std::filesystem::file_size(folder.path("s.png")), 1000U);
}

// The scale is that of a whole process.
TEST_F(DialogCommandTest, aScaleMakesThePictureAsMuchLarger) {
  const auto widthAt = [this](const std::string& percent) {
    const std::string file = folder.path(percent + ".png");
    const ProcessEnd end = runProcess(
        QUILTOR_PROGRAM, {"settings", "--plugin", QUILTOR_MODULE_PATH, "--scale", percent, "--screenshot", file},
        std::chrono::minutes(2));
    EXPECT_EQ(end.kind, ProcessEnd::Kind::Exited);
    EXPECT_EQ(end.status, 0);
    PatternImage picture{};
    EXPECT_EQ(LoadPngImage(file, picture), 0);
    return picture.width;
  };
  const int usual = widthAt("100");
  EXPECT_GT(usual, 400);
  EXPECT_NEAR(widthAt("125"), usual * 1.25, 1);
}

// As for a module that was built without Qt, or that lies alone.
TEST_F(DialogCommandTest, aModuleWithoutTheDialogsBesideItIsOneLine) {
  std::filesystem::copy_file(QUILTOR_MODULE_PATH, folder.path("Quiltor.so"));
  for (const char* command : {"gallery", "settings"}) {
    const Outcome outcome = run({command, "--plugin", folder.path("Quiltor.so"), "--headless", steps("close")});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.out, "");
    EXPECT_EQ(outcome.err, "quiltor: this build has no dialogs: " + folder.path("QuiltorDialogs.so") +
                               " is missing; install qt6-base-dev and qt6-declarative-dev, then build again\n");
  }
}

TEST_F(DialogCommandTest, aStepThatCannotBeDoneIsOneLine) {
  const Outcome outcome = runModule({"settings", "--headless", steps("\nclick \"Ok\"")});
  EXPECT_EQ(outcome.status, 1);
  EXPECT_THAT(outcome.err, StartsWith("quiltor: " + folder.path("steps") +
                                      ": line 2: click: \"Ok\": there is no such control; there are \"Base folder:\""));
}

TEST_F(DialogCommandTest, mistakesOnTheLineAreOneLine) {
  const auto fails = [](const std::vector<std::string>& words, int status, const std::string& line) {
    const Outcome outcome = runModule(words);
    EXPECT_EQ(outcome.status, status);
    EXPECT_EQ(outcome.err, "quiltor: " + line + "\n");
  };
  fails({"settings", "--headless", folder.path("none")}, 1,
        folder.path("none") +
            ": cannot be read; expected steps, as standalone/scripting/automation/README.md describes them");
  fails({"gallery", "--scale", "big"}, 2, "--scale: \"big\": expected percent, from 50 to 400");
  fails({"gallery", "--render", "x.png"}, 2, "--render and --output belong together");
  fails({"gallery", "--render", "x.png", "-o", "y.jpg"}, 2, "--output: y.jpg: expected a name that ends in .png");
}

}  // namespace
}  // namespace quiltor::standalone
