#include "standalone/cli/pattern_choice.h"

#include <gmock/gmock.h>

#include <functional>
#include <string>

#include "formats/test_pattern_reading.h"
#include "platform/scratch_folder.h"
#include "standalone/cli/command_error.h"

namespace quiltor::standalone {
namespace {

using testing::HasSubstr;

class PatternChoiceTest : public testing::Test {
 protected:
  std::string write(const std::string& name, const std::vector<TestPattern>& patterns) {
    const std::string path = folder_.path(name);
    writeBytes(path, TestPatternFile{.patterns = patterns}.bytes());
    return path;
  }

  // By its red, which tells the patterns apart.
  static uint8_t chosen(const std::string& text) {
    const auto choice = parsePatternChoice(text);
    return choice ? choosePattern(*choice).pixels.at(0) : uint8_t{0};
  }

  template <class Error>
  static std::string problem(const std::string& text) {
    try {
      chosen(text);
    } catch (const Error& error) {
      return error.what();
    }
    return "no such error";
  }

  static TestPattern grey(uint8_t tone, const std::u16string& name) {
    TestPattern pattern = greyPattern(name);
    pattern.planes[0].samples = {tone, tone};
    return pattern;
  }

  ScratchFolder folder_;
};

TEST_F(PatternChoiceTest, leavesPicturesAlone) {
  EXPECT_FALSE(parsePatternChoice("woven.png"));
  EXPECT_FALSE(parsePatternChoice("a.pattern#2"));
  write("odd.pat#1.png", {});
  EXPECT_FALSE(parsePatternChoice(folder_.path("odd.pat#1.png")));
}

TEST_F(PatternChoiceTest, takesTheOnlyPatternOfAFile) { EXPECT_EQ(chosen(write("one.PAT", {grey(7, u"a")})), 7); }

TEST_F(PatternChoiceTest, listsThePatternsWhenThereAreSeveral) {
  const std::string path = write("two.pat", {grey(1, u"Bricks"), grey(2, u"")});
  EXPECT_EQ(problem<UsageError>(path),
            "--pattern: " + path + ": it holds 2 patterns, choose one by number or name: #0 \"Bricks\", #1");
}

TEST_F(PatternChoiceTest, listsAFewOfMany) {
  const std::string path = write("many.pat", std::vector<TestPattern>(100, grey(1, u"x")));
  EXPECT_THAT(problem<UsageError>(path), testing::EndsWith("#11 \"x\" and 88 more"));
}

TEST_F(PatternChoiceTest, takesAPatternByItsNumberAmongTheReadable) {
  TestPattern broken = grey(1, u"bitmap");
  broken.mode = 0;
  const std::string path = write("three.pat", {broken, grey(2, u"a"), grey(3, u"b")});
  EXPECT_EQ(chosen(path + "#0"), 2);
  EXPECT_EQ(chosen(path + "#1"), 3);
  EXPECT_THAT(problem<UsageError>(path + "#2"),
              HasSubstr("there is no pattern #2; expected one of #0 \"a\", #1 \"b\""));
}

TEST_F(PatternChoiceTest, takesAPatternByItsNameWithOrWithoutItsCase) {
  const std::string path = write("named.pat", {grey(1, u"Bricks"), grey(2, u"bricks"), grey(3, u"Z\u00e4une #2")});
  EXPECT_EQ(chosen(path + "#bricks"), 2);
  EXPECT_EQ(chosen(path + "#Z\xc3\xa4une #2"), 3);
  EXPECT_EQ(chosen(path + "#z\xc3\xa4une #2"), 3);
  EXPECT_THAT(problem<UsageError>(path + "#BRICKS"),
              HasSubstr("several patterns have the name \"BRICKS\": #0 \"Bricks\", #1 \"bricks\""));
}

TEST_F(PatternChoiceTest, takesANumberBeyondTheFileForAName) {
  EXPECT_EQ(chosen(write("numbers.pat", {grey(1, u"a"), grey(2, u"2024")}) + "#2024"), 2);
}

TEST_F(PatternChoiceTest, suggestsTheNameThatWasNearlyTyped) {
  const std::string path = write("near.pat", {grey(1, u"Bricks"), grey(2, u"Waves")});
  EXPECT_EQ(problem<UsageError>(path + "#Brisk"),
            "--pattern: " + path + ": there is no pattern \"Brisk\"; did you mean \"Bricks\"?");
  EXPECT_THAT(problem<UsageError>(path + "#Petals"), HasSubstr("expected one of #0 \"Bricks\", #1 \"Waves\""));
}

TEST_F(PatternChoiceTest, saysWhyTheNamedPatternCannotBeRead) {
  TestPattern broken = grey(1, u"Bitmap");
  broken.mode = 0;
  const std::string path = write("broken.pat", {grey(1, u"a"), broken});
  EXPECT_EQ(problem<CommandFailure>(path + "#bitmap"),
            path + ": 2nd pattern \"Bitmap\": its image mode is not grey, indexed, RGB or CMYK");
}

TEST_F(PatternChoiceTest, saysWhyTheFileCannotBeRead) {
  EXPECT_EQ(problem<CommandFailure>(folder_.path("none.pat#1")), folder_.path("none.pat") + ": it cannot be opened");
}

TEST_F(PatternChoiceTest, refusesAPatternWithoutPixels) {
  TestPattern empty = grey(1, u"empty");
  empty.rectangle = {};
  empty.planes[0].samples = {};
  const std::string path = write("empty.pat", {empty});
  EXPECT_EQ(problem<CommandFailure>(path), path + ": pattern #0 has no pixels");
}

}  // namespace
}  // namespace quiltor::standalone
