#include <gmock/gmock.h>

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "formats/test_pattern_reading.h"
#include "standalone/host/picture_file.h"
#include "tests/cli/command_line_run.h"

namespace quiltor::standalone {
namespace {

using testing::HasSubstr;

class RenderCommandTest : public CommandLineTest {
 protected:
  RenderCommandTest() {
    write(layer, 12, 8, {0.2, 0.4, 0.6, 1});
    write(red, 4, 4, {1, 0, 0, 1});
  }

  static void write(const std::string& path, int width, int height, const Rgba& color) {
    World picture(WorldFormat::Argb8, width, height);
    picture.fill(color);
    writePng(path, picture);
  }

  Outcome render(const std::vector<std::string>& more) {
    std::vector<std::string> words{"render", layer, "-o", output};
    words.insert(words.end(), more.begin(), more.end());
    return runModule(words);
  }

  // The command must fail with that status and one line that holds the text, and leave nothing behind.
  void expectFailure(const std::vector<std::string>& more, int status, const std::string& text) {
    const Outcome outcome = render(more);
    EXPECT_EQ(outcome.status, status) << outcome.err;
    EXPECT_THAT(outcome.err, HasSubstr(text));
    EXPECT_EQ(std::ranges::count(outcome.err, '\n'), 1) << outcome.err;
    EXPECT_FALSE(std::filesystem::exists(output));
  }

  void expectRed() const {
    const Rgba pixel = readPicture(output, WorldFormat::Argb8).at(3, 3);
    EXPECT_EQ(pixel.r, 1);
    EXPECT_EQ(pixel.g, 0);
    EXPECT_EQ(pixel.b, 0);
  }

  // A file with the left half of the layer as mask 1 and the same, inverted, as mask 5.
  std::string masks() const {
    const std::string file = folder.path("masks.json");
    const std::string half = R"("vertices": [{"at": [0, 0]}, {"at": [6, 0]}, {"at": [6, 8]}, {"at": [0, 8]}])";
    std::ofstream(file) << R"({"masks": [{"id": 1, )" + half + R"(}, {"id": 5, "inverted": true, )" + half + "}]}";
    return file;
  }
  // How much is left of the picture to the left and to the right of the masks' edge.
  void expectAlpha(double left, double right) const {
    const World picture = readPicture(output, WorldFormat::Argb8);
    for (int x = 0; x < picture.width(); ++x) {
      EXPECT_EQ(picture.at(x, 3).a, x < picture.width() / 2 ? left : right) << x;
    }
  }

  const std::string layer = folder.path("layer.png");
  const std::string red = folder.path("red.png");
  const std::string output = folder.path("out.png");
};

TEST_F(RenderCommandTest, drawsThePatternOfAFile) {
  ASSERT_EQ(render({"--pattern", red}).status, 0);
  const World picture = readPicture(output, WorldFormat::Argb8);
  ASSERT_EQ(picture.width(), 12);
  ASSERT_EQ(picture.height(), 8);
  expectRed();
}

TEST_F(RenderCommandTest, drawsThePatternOfALayer) {
  ASSERT_EQ(render({"--pattern-layer", red}).status, 0);
  expectRed();
}

TEST_F(RenderCommandTest, findsThePatternByARelativePath) {
  // Beside the program, since no relative path leads to another drive.
  const std::string relative = std::filesystem::path(folder.path()).filename().string() + ".png";
  write(relative, 4, 4, {1, 0, 0, 1});
  EXPECT_EQ(render({"--pattern", relative}).status, 0);
  std::filesystem::remove(relative);
  expectRed();
}

TEST_F(RenderCommandTest, setsParametersByBothNames) {
  ASSERT_EQ(render({"--pattern", red, "--set", "blendmode=Multiply", "--set", "Opacity=50%"}).status, 0);
  // Halfway between the layer and its product with red.
  const Rgba pixel = readPicture(output, WorldFormat::Argb8).at(3, 3);
  EXPECT_NEAR(pixel.r, 0.2, 1.0 / 255);
  EXPECT_NEAR(pixel.g, 0.2, 1.0 / 255);
  EXPECT_NEAR(pixel.b, 0.3, 1.0 / 255);
}

TEST_F(RenderCommandTest, letsSetOverruleTheChosenSource) {
  ASSERT_EQ(render({"--pattern", red, "--set", "source=Layer"}).status, 0);
  EXPECT_LT(readPicture(output, WorldFormat::Argb8).at(3, 3).r, 1);
}

TEST_F(RenderCommandTest, rendersTheSameWithBothKindsOfSelectors) {
  const std::vector<std::string> settings{"--pattern", red, "--set", "opacity=30%", "--trace"};
  auto classic = settings, smart = settings;
  classic.push_back("--classic");
  smart.push_back("--smart");
  const Outcome first = render(classic);
  ASSERT_EQ(first.status, 0) << first.err;
  const auto pixels = readPicture(output, WorldFormat::Argb8).packed();
  const Outcome second = render(smart);
  ASSERT_EQ(second.status, 0) << second.err;
  EXPECT_EQ(readPicture(output, WorldFormat::Argb8).packed(), pixels);
  EXPECT_THAT(first.err, HasSubstr("PF_Cmd_RENDER"));
  EXPECT_THAT(second.err, HasSubstr("PF_Cmd_SMART_RENDER"));
}

TEST_F(RenderCommandTest, rendersAtReducedResolution) {
  ASSERT_EQ(render({"--pattern", red, "--downsample", "3"}).status, 0);
  const World picture = readPicture(output, WorldFormat::Argb8);
  EXPECT_EQ(picture.width(), 4);
  EXPECT_EQ(picture.height(), 3);
}

TEST_F(RenderCommandTest, keepsMoreThan8BitsOfDeepRenders) {
  for (const char* depth : {"16", "float"}) {
    ASSERT_EQ(render({"--pattern", red, "--set", "opacity=1%", "--depth", depth}).status, 0);
    const double green = readPicture(output, WorldFormat::ArgbFloat).at(3, 3).g;
    EXPECT_GT(std::abs(green * 255 - std::round(green * 255)), 0.01) << depth;
  }
}

TEST_F(RenderCommandTest, locksThePatternToTheGivenTransform) {
  const std::string striped = folder.path("striped.png");
  World stripes(WorldFormat::Argb8, 8, 8);
  for (int y = 0; y < 8; ++y) {
    for (int x = 0; x < 8; ++x) stripes.set(x, y, {x < 4 ? 1.0 : 0.0, 0, 0, 1});
  }
  writePng(striped, stripes);
  ASSERT_EQ(render({"--pattern", striped, "--set", "lock=on"}).status, 0);
  const auto unmoved = readPicture(output, WorldFormat::Argb8).packed();
  ASSERT_EQ(render({"--pattern", striped, "--set", "lock=on", "--layer-rotation", "90"}).status, 0);
  EXPECT_NE(readPicture(output, WorldFormat::Argb8).packed(), unmoved);
  ASSERT_EQ(render({"--pattern", striped, "--layer-rotation", "90"}).status, 0);
  EXPECT_EQ(readPicture(output, WorldFormat::Argb8).packed(), unmoved);
}

TEST_F(RenderCommandTest, namesTheParameterThatDoesNotExist) {
  expectFailure({"--set", "opacty=1"}, 2, "did you mean \"opacity\"?");
}

TEST_F(RenderCommandTest, namesTheValueThatDoesNotFit) {
  expectFailure({"--set", "opacity=170%"}, 2, "Opacity: \"170%\": expected a number from 0 to 100");
}

TEST_F(RenderCommandTest, namesThePictureThatCannotBeRead) {
  const Outcome outcome = runModule({"render", folder.path("none.png"), "-o", output});
  EXPECT_EQ(outcome.status, 1);
  EXPECT_THAT(outcome.err, HasSubstr(folder.path("none.png")));
  expectFailure({"--pattern", folder.path("none.png")}, 1, folder.path("none.png"));
  expectFailure({"--pattern-layer", folder.path("none.png")}, 1, folder.path("none.png"));
}

TEST_F(RenderCommandTest, rejectsAPatternWhoseNameHidesItsFormat) {
  const std::string misnamed = folder.path("red.jpg");
  std::filesystem::copy(red, misnamed);
  expectFailure({"--pattern", misnamed}, 1, misnamed + ": holds a PNG picture; expected a name that ends in .png");
}

TEST_F(RenderCommandTest, drawsAPatternOutOfAPhotoshopPatternFile) {
  TestPattern redPattern = rgbPattern(u"Red");
  redPattern.planes = {{.samples = {255, 255}}, {.samples = {0, 0}}, {.samples = {0, 0}}};
  const std::string file = folder.path("two.pat");
  writeBytes(file, TestPatternFile{.patterns = {greyPattern(u"Grey"), redPattern}}.bytes());
  ASSERT_EQ(render({"--pattern", file + "#1"}).status, 0);
  expectRed();
  std::filesystem::remove(output);
  ASSERT_EQ(render({"--pattern", file + "#red"}).status, 0);
  expectRed();
  std::filesystem::remove(output);
  expectFailure({"--pattern", file}, 2, "it holds 2 patterns, choose one by number or name: #0 \"Grey\", #1 \"Red\"");
  expectFailure({"--pattern", file + "#Rad"}, 2, "there is no pattern \"Rad\"; did you mean \"Red\"?");
  expectFailure({"--pattern", folder.path("none.pat")}, 1, folder.path("none.pat") + ": it cannot be opened");
}

TEST_F(RenderCommandTest, leavesNoTemporaryFileBehind) {
  std::filesystem::create_directories(folder.path("temporary"));
  const EnvironmentOverride temporary("TMPDIR", folder.path("temporary"));
  writeBytes(folder.path("one.pat"), TestPatternFile{.patterns = {rgbPattern()}}.bytes());
  ASSERT_EQ(render({"--pattern", folder.path("one.pat")}).status, 0);
  EXPECT_TRUE(std::filesystem::is_empty(folder.path("temporary")));
}

TEST_F(RenderCommandTest, leavesAnOlderOutputWholeWhenItFails) {
  std::ofstream(output) << "older";
  EXPECT_EQ(render({"--set", "opacity=no"}).status, 2);
  std::ifstream file(output);
  std::string contents;
  file >> contents;
  EXPECT_EQ(contents, "older");
}

TEST_F(RenderCommandTest, rendersTheSamePictureInPremiere) {
  const std::vector<std::string> settings{"--pattern", red,     "--set",    "opacity=30%", "--set",
                                          "lock=on",   "--set", "scale=33", "--set",       "blendmode=Reflect"};
  for (const char* depth : {"8", "float"}) {
    auto inPremiere = settings;
    inPremiere.insert(inPremiere.end(), {"--depth", depth});
    ASSERT_EQ(render(inPremiere).err, "");
    const auto pixels = readPicture(output, WorldFormat::Argb16).packed();
    std::filesystem::remove(output);
    inPremiere.insert(inPremiere.end(), {"--host", "premiere", "--trace"});
    const Outcome outcome = render(inPremiere);
    ASSERT_EQ(outcome.status, 0) << outcome.err;
    EXPECT_THAT(outcome.err, HasSubstr("PF Pixel Format Suite"));
    EXPECT_THAT(outcome.err, HasSubstr("PF_Cmd_RENDER"));
    EXPECT_EQ(readPicture(output, WorldFormat::Argb16).packed(), pixels);
  }
}

TEST_F(RenderCommandTest, drawsThePatternOfALayerInPremiere) {
  ASSERT_EQ(render({"--pattern-layer", red, "--host", "premiere"}).err, "");
  expectRed();
}

TEST_F(RenderCommandTest, refusesWhatPremiereLacks) {
  const auto expectRefusal = [this](std::vector<std::string> more, const std::string& text) {
    more.insert(more.end(), {"--host", "premiere"});
    expectFailure(more, 2, text);
  };
  expectRefusal({"--smart"}, "--smart: Premiere Pro has no smart rendering");
  expectRefusal({"--depth", "16"}, "--depth: \"16\": expected 8 or float, as Premiere Pro renders");
  expectRefusal({"--masks", masks(), "--set", "mask=1"}, "--masks: Premiere Pro shows effects no masks");
  for (const std::string option : {"--layer-position", "--layer-anchor", "--layer-scale"}) {
    expectRefusal({option, "3,4"}, option + ": Premiere Pro does not tell effects where their layer lies");
  }
  expectRefusal({"--layer-rotation", "3"}, "--layer-rotation: Premiere Pro");
}

TEST_F(RenderCommandTest, namesAHostThatItDoesNotPlay) {
  expectFailure({"--host", "Premiere"}, 2, "--host: \"Premiere\": expected after-effects or premiere");
}

TEST_F(RenderCommandTest, limitsThePatternToTheChosenMask) {
  ASSERT_EQ(render({"--masks", masks(), "--set", "Mask=1"}).err, "");
  expectAlpha(1, 0);
  ASSERT_EQ(render({"--masks", masks(), "--set", "mask=5"}).err, "");
  expectAlpha(0, 1);
  ASSERT_EQ(render({"--masks", masks(), "--set", "mask=5", "--depth", "16", "--classic"}).err, "");
  expectAlpha(0, 1);
}

TEST_F(RenderCommandTest, limitsNothingWithoutAChosenMask) {
  ASSERT_EQ(render({"--masks", masks()}).err, "");
  expectAlpha(1, 1);
  ASSERT_EQ(render({"--masks", masks(), "--set", "mask=1", "--set", "mask=none"}).err, "");
  expectAlpha(1, 1);
}

TEST_F(RenderCommandTest, scalesTheMaskWithTheFrame) {
  ASSERT_EQ(render({"--masks", masks(), "--set", "mask=1", "--downsample", "2"}).err, "");
  ASSERT_EQ(readPicture(output, WorldFormat::Argb8).width(), 6);
  expectAlpha(1, 0);
}

TEST_F(RenderCommandTest, refusesMasksThatAreNotThere) {
  expectFailure({"--masks", masks(), "--set", "mask=2"}, 2,
                "Mask: \"2\": expected none, or the id of a mask of the file: 1, 5");
  expectFailure({"--set", "mask=1"}, 2, "--masks FILE");
  expectFailure({"--masks", folder.path("none.json")}, 1, folder.path("none.json"));
  std::ofstream(folder.path("bad.json")) << R"({"masks": [{"id": 1}]})";
  expectFailure({"--masks", folder.path("bad.json")}, 1, "bad.json: masks[0].vertices: is missing, expected");
}

}  // namespace
}  // namespace quiltor::standalone
