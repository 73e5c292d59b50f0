// Names of files and folders that no code page has all of, and long ones.
#include <gmock/gmock.h>

#include <array>
#include <filesystem>
#include <string>
#include <vector>

#include "base/utf8_path.h"
#include "formats/image_file.h"
#include "formats/test_pattern_reading.h"
#include "library/files/folders.h"
#include "library/files/read_text.h"
#include "platform/folder.h"
#include "standalone/host/picture_file.h"
#include "standalone/validate/child_process.h"
#include "tests/cli/command_line_run.h"

namespace quiltor::standalone {
namespace {

using testing::HasSubstr;
namespace fs = std::filesystem;

class AnyFileName : public CommandLineTest, public testing::WithParamInterface<std::string> {
 protected:
  // Its pattern has the same name as the file, which has this ending.
  std::string patternFile(const std::string& place) {
    std::string path = place + ".pat";
    writeBytes(path, TestPatternFile{.patterns = {rgbPattern(pathFromUtf8(name).u16string())}}.bytes());
    return path;
  }

  std::string picture(const std::string& path, const Rgba& color) {
    World world(WorldFormat::Argb8, 4, 4);
    world.fill(color);
    writePng(pathFromUtf8(path), world);
    return path;
  }

  // Of a pattern that patternFile() made.
  static void expectConverted(const std::string& path) {
    PatternImage image;
    ASSERT_EQ(LoadPngImage(path, image), 0) << path;
    EXPECT_EQ(image.pixels, (Bytes{1, 2, 3, 255, 4, 5, 6, 255}));
  }

  // Renders over a layer with more options, and gives the last pixel of what came out.
  Rgba rendered(const std::string& layer, const std::string& output, const std::vector<std::string>& options) {
    std::vector<std::string> words = {"render", layer, "-o", output};
    words.insert(words.end(), options.begin(), options.end());
    const Outcome outcome = runModule(words);
    EXPECT_EQ(outcome.status, 0) << outcome.err;
    return readPicture(pathFromUtf8(output), WorldFormat::Argb8).at(3, 3);
  }

  static void expectColor(const Rgba& pixel, const std::array<double, 3>& color) {
    const std::array<double, 3> found = {pixel.r, pixel.g, pixel.b};
    EXPECT_THAT(found, testing::Pointwise(testing::DoubleNear(1e-6), color));
  }

  const std::string name = GetParam();
  const std::string here = folder.path(name);
};

TEST_P(AnyFileName, IsTakenByRender) {
  const std::string layer = picture(here + ".png", {0.2, 0.4, 0.6, 1});
  const std::string red = picture(folder.path("red " + name + ".png"), {1, 0, 0, 1});
  const std::string green = picture(folder.path("green " + name + ".png"), {0, 1, 0, 1});
  expectColor(rendered(layer, here + "-1.png", {"--pattern", red}), {1, 0, 0});
  expectColor(rendered(layer, here + "-2.png", {"--pattern-layer", green}), {0, 1, 0});
  // The pattern of two pixels lies around the middle, and begins again at the last one.
  expectColor(rendered(layer, here + "-3.png", {"--pattern", patternFile(here) + "#" + name}),
              {1 / 255., 2 / 255., 3 / 255.});
}

TEST_P(AnyFileName, IsSaidInErrors) {
  const std::string missing = here + ".png";
  const Outcome outcome = runModule({"render", missing, "-o", folder.path("out.png")});
  EXPECT_EQ(outcome.status, 1);
  EXPECT_EQ(outcome.err, "quiltor: cannot read " + missing + ": no such file or no permission\n");
  const Outcome ending = runModule({"render", missing, "-o", here});
  EXPECT_EQ(ending.err, "quiltor: --output: " + here + ": expected a name that ends in .png\n");
}

TEST_P(AnyFileName, IsTakenForModules) {
  const std::string module = here + utf8FromPath(fs::path(QUILTOR_MODULE_PATH).extension());
  fs::copy_file(QUILTOR_MODULE_PATH, pathFromUtf8(module));
  const Outcome outcome = run({"about", "--plugin", module});
  EXPECT_EQ(outcome.status, 0) << outcome.err;
  EXPECT_THAT(outcome.out, HasSubstr("Quiltor"));
}

TEST_P(AnyFileName, IsTakenByConvert) {
  createFolderChain(here);
  patternFile(here + "/" + name);
  const std::string output = folder.path("out " + name);
  const Outcome outcome = run({"convert", here, "-o", output});
  EXPECT_EQ(outcome.status, 0) << outcome.err;
  EXPECT_EQ(outcome.out, "1 file, 1 pattern converted into " + output + ", 0 failures\n");
  expectConverted(output + "/" + name + "/" + name + "_00.png");
}

TEST_P(AnyFileName, IsTakenByTheLibrary) {
  const EnvironmentOverride user("QUILTOR_USER_DIR", folder.path("user " + name));
  const EnvironmentOverride all("QUILTOR_ALLUSERS_DIR", folder.path("all " + name));
  const std::string data = folder.path("all " + name) + "/Quiltor";
  createFolderChain(here);
  ASSERT_EQ(SavePngImage(here + "/" + name + ".png", {1, 1, 3, {200, 0, 0}}), 0);
  patternFile(here + "/" + name);

  const Outcome scan = run({"library", "scan", here});
  ASSERT_EQ(scan.status, 0) << scan.err;
  const std::string listed = utf8FromPath(pathFromUtf8(here).make_preferred());
  EXPECT_EQ(readWholeFile(data + "/libpaths.txt"), name + "**" + listed + "\r\n");
  EXPECT_THAT(scan.out, HasSubstr("1 library, 1 picture\n"));

  const Outcome convert = run({"library", "convert"});
  EXPECT_EQ(convert.status, 0) << convert.err;
  // The thumbnail of the picture and the picture of the pattern.
  EXPECT_THAT(convert.out, HasSubstr("2 pictures made, 0 failures"));
  expectConverted(data + "/PS Patterns/" + name + "/" + name + "_00.png");

  const Outcome again = run({"library", "scan"});
  EXPECT_EQ(again.status, 0) << again.err;
  const Outcome list = run({"library", "list"});
  EXPECT_EQ(list.status, 0) << list.err;
  EXPECT_THAT(list.out, HasSubstr("2 libraries, 2 pictures\n"));

  const std::string sheet = folder.path("sheet " + name + ".png");
  const Outcome drawn = run({"library", "sheet", listed, "-o", sheet});
  EXPECT_EQ(drawn.status, 0) << drawn.err;
  PatternImage image;
  EXPECT_EQ(LoadPngImage(sheet, image), 0);
}

TEST_P(AnyFileName, ReachesTheProgram) {
  const std::string output = folder.path("out");
  const ProcessEnd end =
      runProcess(QUILTOR_PROGRAM, {"convert", patternFile(here), "-o", output}, std::chrono::minutes(2));
  EXPECT_EQ(end.status, 0);
  expectConverted(output + "/" + name + "/" + name + "_00.png");
}

INSTANTIATE_TEST_SUITE_P(Utf8, AnyFileName,
                         testing::Values("J\u00FCrgen Bo\u00EBthius", "\u7F8E \U0001F3A8", "two  blanks",
                                         std::string(200, 'n')));

}  // namespace
}  // namespace quiltor::standalone
