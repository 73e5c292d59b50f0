#include <gmock/gmock.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <map>
#include <sstream>
#include <string>
#include <vector>

#include "base/utf8_path.h"
#include "formats/image_file.h"
#include "formats/test_pattern_reading.h"
#include "standalone/cli/convert_command.h"
#include "tests/cli/command_line_run.h"

namespace quiltor::standalone {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

class ConvertCommandTest : public CommandLineTest {
 protected:
  std::string write(const std::string& name, const std::vector<TestPattern>& patterns) {
    const std::string path = folder.path(name);
    std::filesystem::create_directories(std::filesystem::path(path).parent_path());
    writeBytes(path, TestPatternFile{.patterns = patterns}.bytes());
    return path;
  }

  static TestPattern bitmap() {
    TestPattern pattern = greyPattern(u"Old film");
    pattern.mode = 0;
    return pattern;
  }

  Outcome convert(std::vector<std::string> sources) {
    sources.insert(sources.begin(), "convert");
    sources.insert(sources.end(), {"-o", output});
    return run(sources);
  }

  // Some take longer to pack than others.
  static TestPattern grainy(int seed) {
    TestPattern pattern = greyPattern(u"Grain");
    pattern.rectangle = {.bottom = 100, .right = 16 + static_cast<uint32_t>(seed) % 7 * 40};
    pattern.planes[0].samples = someBytes(size_t{100} * pattern.rectangle.width());
    pattern.planes[0].samples[0] = static_cast<uint8_t>(seed);
    return pattern;
  }

  // Of a conversion that somebody watches.
  Outcome convertAtOnce(std::size_t count, const std::string& source) {
    std::ostringstream out, err;
    const bool good = runConvert({{source}, output, count}, {out, err, true});
    return {good ? 0 : 1, out.str(), err.str()};
  }

  // All files below the output folder.
  std::vector<std::string> made() const {
    std::vector<std::string> names;
    if (!std::filesystem::exists(output)) return names;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(output)) {
      if (entry.is_regular_file()) names.push_back(genericUtf8FromPath(entry.path().lexically_relative(output)));
    }
    std::ranges::sort(names);
    return names;
  }

  const std::string output = folder.path("out");
};

TEST_F(ConvertCommandTest, makesAPictureOfEveryPattern) {
  const Outcome outcome = convert({write("mixed.pat", {greyPattern(), rgbPattern()})});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.err, "");
  EXPECT_EQ(outcome.out, "1 file, 2 patterns converted into " + output + ", 0 failures\n");
  ASSERT_THAT(made(), ElementsAre("mixed/mixed_00.png", "mixed/mixed_01.png"));
  PatternImage image;
  ASSERT_EQ(LoadPngImage(output + "/mixed/mixed_01.png", image), 0);
  EXPECT_EQ(image.pixels, (Bytes{1, 2, 3, 255, 4, 5, 6, 255}));
}

TEST_F(ConvertCommandTest, searchesFoldersForFilesOfAnyCase) {
  write("in/deep/er/B.PAT", {greyPattern()});
  write("in/a.pat", {greyPattern()});
  write("in/a.pat.png", {greyPattern()});
  const Outcome outcome = convert({folder.path("in/")});
  EXPECT_EQ(outcome.status, 0) << outcome.err;
  EXPECT_THAT(made(), ElementsAre("B/B_00.png", "a/a_00.png"));
}

TEST_F(ConvertCommandTest, converts101PatternsUnderNamesOfTwoAndThreeDigits) {
  EXPECT_EQ(convert({write("many.pat", std::vector<TestPattern>(101, greyPattern()))}).status, 0);
  const auto names = made();
  ASSERT_EQ(names.size(), 101u);
  EXPECT_TRUE(std::ranges::count(names, "many/many_99.png"));
  EXPECT_TRUE(std::ranges::count(names, "many/many_100.png"));
}

TEST_F(ConvertCommandTest, convertsAFileOnceHoweverOftenItIsNamed) {
  const std::string path = write("in/a.pat", {greyPattern()});
  const Outcome outcome = convert({path, folder.path("in"), folder.path("in/../in/a.pat")});
  EXPECT_EQ(outcome.out, "1 file, 1 pattern converted into " + output + ", 0 failures\n");
  EXPECT_EQ(outcome.err, "");
}

TEST_F(ConvertCommandTest, convertsAgainWhatChanged) {
  convert({write("a.pat", {greyPattern()})});
  EXPECT_EQ(convert({write("a.pat", {rgbPattern()})}).status, 0);
  PatternImage image;
  ASSERT_EQ(LoadPngImage(output + "/a/a_00.png", image), 0);
  EXPECT_EQ(image.pixels, (Bytes{1, 2, 3, 255, 4, 5, 6, 255}));
}

TEST_F(ConvertCommandTest, tellsWhichPatternOfWhichFileFailsAndConvertsTheOthers) {
  const std::string path = write("a.pat", {greyPattern(), bitmap(), rgbPattern()});
  const Outcome outcome = convert({path, write("b.pat", {greyPattern()})});
  EXPECT_EQ(outcome.status, 1);
  EXPECT_EQ(outcome.err,
            "quiltor: " + path + ": 2nd pattern \"Old film\": its image mode is not grey, indexed, RGB or CMYK\n");
  EXPECT_EQ(outcome.out, "2 files, 3 patterns converted into " + output + ", 1 failure\n");
  EXPECT_THAT(made(), ElementsAre("a/a_00.png", "a/a_01.png", "b/b_00.png"));
}

TEST_F(ConvertCommandTest, tellsThatAFileIsCutOff) {
  const std::string path = folder.path("a.pat");
  writeBytes(path, TestPatternFile{.patterns = {greyPattern(), rgbPattern(u"Last")}, .count = 3}.bytes());
  std::filesystem::resize_file(path, std::filesystem::file_size(path) - 95);
  const Outcome outcome = convert({path});
  EXPECT_EQ(outcome.status, 1);
  EXPECT_EQ(outcome.err,
            "quiltor: " + path + ": 2nd pattern \"Last\": the file ends inside a plane\n" + "quiltor: " + path +
                ": the rest of it is not read: a pattern says that it reaches beyond the end of the file\n");
  EXPECT_THAT(made(), ElementsAre("a/a_00.png"));
}

TEST_F(ConvertCommandTest, goesOnBehindSourcesThatAreNone) {
  std::filesystem::create_directories(folder.path("empty"));
  std::ofstream(folder.path("text.pat")) << "no pattern";
  const Outcome outcome = convert({folder.path("none.pat"), folder.path("empty"), folder.path("text.pat"), "a.png",
                                   write("a.pat", {greyPattern()})});
  EXPECT_EQ(outcome.status, 1);
  EXPECT_EQ(outcome.err, "quiltor: " + folder.path("empty") + ": no .pat file in this folder or below\n" +
                             "quiltor: a.png: expected a .pat file or a folder\n" +
                             "quiltor: " + folder.path("none.pat") + ": it cannot be opened\n" + "quiltor: " +
                             folder.path("text.pat") + ": it does not begin with 8BPT and is no pattern file\n");
  EXPECT_EQ(outcome.out, "1 file, 1 pattern converted into " + output + ", 4 failures\n");
}

TEST_F(ConvertCommandTest, doesNotMixFilesOfTheSameName) {
  const std::string first = write("a/same.pat", {greyPattern()});
  const std::string second = write("b/same.pat", {rgbPattern()});
  const Outcome outcome = convert({folder.path("a"), folder.path("b")});
  EXPECT_EQ(outcome.status, 1);
  EXPECT_EQ(withSlashes(outcome.err), "quiltor: " + second + ": its pictures would replace those of " + first + "\n");
  PatternImage image;
  ASSERT_EQ(LoadPngImage(output + "/same/same_00.png", image), 0);
  EXPECT_EQ(image.pixels.at(0), 10);
}

TEST_F(ConvertCommandTest, staysInItsFolderWhateverAFileIsCalled) {
  for (const char* name : {"...pat", "..pat", ".pat"}) {
    const Outcome outcome = convert({write(name, {greyPattern()})});
    EXPECT_EQ(outcome.status, 1) << name;
    EXPECT_THAT(outcome.err, HasSubstr("its name leaves none for a folder")) << name;
  }
  EXPECT_THAT(made(), IsEmpty());
}

TEST_F(ConvertCommandTest, makesNoFolderWhenThereIsNothingToPutThere) {
  const Outcome outcome = convert({write("a.pat", {bitmap()})});
  EXPECT_EQ(outcome.status, 1);
  EXPECT_EQ(outcome.out, "0 files, 0 patterns converted into " + output + ", 1 failure\n");
  EXPECT_FALSE(std::filesystem::exists(output));
}

TEST_F(ConvertCommandTest, tellsWhatCannotBeWritten) {
  const std::string path = write("a.pat", {greyPattern(), rgbPattern(u"second")});
  std::filesystem::create_directories(output + "/a/a_01.png");
  const Outcome outcome = convert({path});
  EXPECT_EQ(outcome.status, 1);
  EXPECT_EQ(outcome.err,
            "quiltor: " + path + ": 2nd pattern \"second\": " + output + "/a/a_01.png: it cannot be created\n");
  EXPECT_THAT(made(), ElementsAre("a/a_00.png"));
}

TEST_F(ConvertCommandTest, tellsWhichFolderCannotBeMade) {
  std::filesystem::create_directories(output);
  std::ofstream(output + "/a") << "mine";
  const std::string path = write("a.pat", {greyPattern()});
  const Outcome outcome = convert({path});
  EXPECT_EQ(outcome.status, 1);
  EXPECT_EQ(outcome.err, "quiltor: " + path + ": the folder " + output + "/a cannot be made\n");
}

TEST_F(ConvertCommandTest, refusesAnOutputThatIsAFile) {
  std::ofstream(output) << "mine";
  const Outcome outcome = convert({write("a.pat", {greyPattern()})});
  EXPECT_EQ(outcome.status, 1);
  EXPECT_EQ(outcome.err, "quiltor: --output: " + output + ": it is a file, expected a folder\n");
  EXPECT_EQ(outcome.out, "");
}

TEST_F(ConvertCommandTest, makesAndTellsTheSameHoweverManyAtOnce) {
  for (int i = 0; i < 30; ++i) {
    const std::string name = std::to_string(i);
    std::vector<TestPattern> patterns{grainy(i), grainy(i + 1), bitmap(), grainy(i + 3)};
    if (i % 5 == 1) patterns = {bitmap()};
    if (i % 5 == 2) patterns.resize(1);
    write("in/" + name + ".pat", patterns);
    if (i % 4 == 0) write("in/same/" + name + ".pat", {rgbPattern()});
    if (i % 5 == 3) std::ofstream(folder.path("in/" + name + ".text.pat")) << "no pattern";
    if (i % 5 == 4) std::filesystem::create_directories(output + "/" + name + "/" + name + "_01.png");
  }
  const Outcome alone = convertAtOnce(1, folder.path("in"));
  const auto names = made();
  std::map<std::string, Bytes> pictures;
  for (const std::string& name : names) pictures[name] = readBytes(output + "/" + name);
  EXPECT_THAT(alone.out, HasSubstr("25 files, 55 patterns"));
  EXPECT_THAT(alone.err, AllOf(HasSubstr("it cannot be created"), HasSubstr("would replace those of")));
  for (const std::size_t count : {2U, 3U, 16U}) {
    for (const std::string& name : names) std::filesystem::remove(output + "/" + name);
    const Outcome outcome = convertAtOnce(count, folder.path("in"));
    EXPECT_EQ(outcome.err, alone.err) << count;
    EXPECT_EQ(outcome.out, alone.out) << count;
    EXPECT_EQ(made(), names) << count;
    for (const std::string& name : names) EXPECT_EQ(readBytes(output + "/" + name), pictures[name]) << count << name;
  }
}

TEST_F(ConvertCommandTest, keepsTheNamesOfThePatternsFromTheOutput) {
  testing::internal::CaptureStdout();
  convert({write("a.pat", {greyPattern()})});
  EXPECT_EQ(testing::internal::GetCapturedStdout(), "");
}

#ifndef _WIN32  // there are no such names
using LinuxConvertCommand = ConvertCommandTest;

TEST_F(LinuxConvertCommand, keepsEachFailureOnItsLineWhateverAFileIsCalled) {
  const Outcome outcome = convert({write("a\nb\x1b[2J.pat", {bitmap()})});
  EXPECT_EQ(std::ranges::count(outcome.err, '\n'), 1) << outcome.err;
  EXPECT_THAT(outcome.err, HasSubstr("/a b [2J.pat: 1st pattern"));
}

TEST_F(LinuxConvertCommand, doesNotMixFilesWhoseFoldersAreOneByALink) {
  const std::string first = write("first.pat", {greyPattern()}), second = write("second.pat", {rgbPattern()});
  std::filesystem::create_directories(output + "/first");
  std::filesystem::create_directory_symlink("first", output + "/second");
  const Outcome outcome = convert({first, second});
  EXPECT_EQ(outcome.status, 1);
  EXPECT_EQ(outcome.err, "quiltor: " + second + ": its pictures would replace those of " + first + "\n");
  EXPECT_THAT(made(), ElementsAre("first/first_00.png"));
}
#else
using WindowsConvertCommand = ConvertCommandTest;

TEST_F(WindowsConvertCommand, doesNotMixFilesWhoseNamesDifferInTheirCase) {
  const std::string first = write("a/Wood.pat", {greyPattern()}), second = write("b/wood.pat", {rgbPattern()});
  const Outcome outcome = convert({first, second});
  EXPECT_EQ(outcome.status, 1);
  EXPECT_EQ(withSlashes(outcome.err), "quiltor: " + second + ": its pictures would replace those of " + first + "\n");
  EXPECT_THAT(made(), ElementsAre("Wood/Wood_00.png"));
}

TEST_F(WindowsConvertCommand, convertsAFileOnceThatIsNamedInTwoCases) {
  static_cast<void>(write("Wood.pat", {greyPattern()}));
  const Outcome outcome = convert({folder.path("Wood.pat"), folder.path("wood.pat")});
  EXPECT_EQ(outcome.status, 0) << outcome.err;
  EXPECT_THAT(outcome.out, HasSubstr("1 file, 1 pattern converted"));
}
#endif

}  // namespace
}  // namespace quiltor::standalone
