#include <gtest/gtest.h>

#include "formats/test_pattern_reading.h"
#include "platform/file.h"
#include "platform/open_files.h"

namespace quiltor {
namespace {

class PatternFile : public PatternFileTest {
 protected:
  // Why a pattern of this rectangle was skipped; null when it or the one after it came out differently.
  const char* skippedFor(const TestRectangle& rectangle) {
    TestPattern pattern = rgbPattern(u"skipped");
    pattern.rectangle = rectangle;
    for (TestPlane& plane : pattern.planes) plane.rectangle = kTwoPixels;
    read(TestPatternFile{.patterns = {pattern, greyPattern(u"next")}});
    const bool isSkipped = names() == std::vector<std::string>{"next"} && report_.failures.size() == 1;
    return isSkipped ? report_.failures[0].reason : nullptr;
  }
};

TEST_F(PatternFile, WithAnotherSignatureIsRefused) {
  read(TestPatternFile{.patterns = {greyPattern()}, .signature = "8BPS"});
  EXPECT_EQ(result_, -1);
  EXPECT_TRUE(patterns_.empty());
  EXPECT_STREQ(report_.problem, "it does not begin with 8BPT and is no pattern file");
}

TEST_F(PatternFile, WithVersionTwoIsRefused) {
  read(TestPatternFile{.patterns = {greyPattern()}, .version = 2});
  EXPECT_EQ(result_, -1);
  EXPECT_STREQ(report_.problem, "its version is not 1");
}

TEST_F(PatternFile, WithACountOfZeroIsRefused) {
  read(TestPatternFile{.patterns = {greyPattern()}, .count = 0});
  EXPECT_EQ(result_, -1);
  EXPECT_STREQ(report_.problem, "it says that it holds no patterns");
}

TEST_F(PatternFile, WithANegativeCountGivesNoPattern) {
  read(TestPatternFile{.patterns = {greyPattern()}, .count = 0x80000000});
  EXPECT_EQ(result_, 0);
  EXPECT_TRUE(patterns_.empty());
}

TEST_F(PatternFile, ThatEndsInItsHeaderIsRefused) {
  const Bytes whole = TestPatternFile{.patterns = {greyPattern()}}.bytes();
  for (std::ptrdiff_t length = 0; length < 10; ++length) {
    read(Bytes(whole.begin(), whole.begin() + length));
    EXPECT_EQ(result_, -1) << length;
  }
}

TEST_F(PatternFile, ThatIsMissingIsRefused) {
  EXPECT_EQ(loadPatternFile(scratch_.path("nowhere.pat"), patterns_, &report_), -1);
  EXPECT_STREQ(report_.problem, "it cannot be opened");
  EXPECT_EQ(ReadPatternFile(nullptr, patterns_), -1);
}

TEST_F(PatternFile, IsClosedByTheReaderAfterAGoodHeader) {
  writeBytes(path_, TestPatternFile{.patterns = {greyPattern()}}.bytes());
  const int before = openFiles();
  EXPECT_EQ(ReadPatternFile(openFile(path_, "rb"), patterns_), 0);
  EXPECT_EQ(openFiles(), before);
}

TEST_F(PatternFile, IsLeftOpenByTheReaderAfterABadHeader) {
  writeBytes(path_, {'8', 'B', 'P', 'S'});
  std::FILE* const file = openFile(path_, "rb");
  const int before = openFiles();
  EXPECT_EQ(ReadPatternFile(file, patterns_), -1);
  EXPECT_EQ(openFiles(), before);
  std::fclose(file);
}

TEST_F(PatternFile, IsClosedByTheLoaderInEveryCase) {
  const int before = openFiles();
  read(greyPattern());
  read(TestPatternFile{.patterns = {greyPattern()}, .version = 2});
  read(Bytes{});
  EXPECT_EQ(loadPatternFile(scratch_.path("nowhere.pat"), patterns_), -1);
  EXPECT_EQ(openFiles(), before);
}

TEST_F(PatternFile, GivesItsPatternsInOrder) {
  read(TestPatternFile{.patterns = {rgbPattern(u"one"), greyPattern(u"two"), rgbPattern(u"three")}});
  EXPECT_EQ(names(), (std::vector<std::string>{"one", "two", "three"}));
}

TEST_F(PatternFile, AppendsToWhatTheListHolds) {
  read(greyPattern(u"first"));
  EXPECT_EQ(loadPatternFile(path_, patterns_), 0);
  EXPECT_EQ(names(), (std::vector<std::string>{"first", "first"}));
}

TEST_F(PatternFile, SkipsABitmapBetweenTwoPatterns) {
  TestPattern bitmap = {.mode = 0, .rectangle = kTwoPixels, .planes = {{.samples = {128, 0}, .depth = 1}}};
  bitmap.name = u"bitmap";
  read(TestPatternFile{.patterns = {greyPattern(u"one"), bitmap, rgbPattern(u"two")}});
  EXPECT_EQ(names(), (std::vector<std::string>{"one", "two"}));
  ASSERT_EQ(report_.failures.size(), 1u);
  EXPECT_EQ(report_.failures[0].place, 1u);
  EXPECT_EQ(report_.failures[0].name, "bitmap");
  EXPECT_STREQ(report_.failures[0].reason, "its image mode is not grey, indexed, RGB or CMYK");
}

TEST_F(PatternFile, SkipsEveryModeAboveFour) {
  for (const uint32_t mode : {5u, 7u, 8u, 9u, 0xFFFFFFFFu}) {
    TestPattern other = rgbPattern();
    other.mode = mode;
    read(TestPatternFile{.patterns = {other, greyPattern(u"next")}});
    EXPECT_EQ(names(), (std::vector<std::string>{"next"})) << mode;
  }
}

TEST_F(PatternFile, DoesNotMindTheVersionOfAPattern) {
  TestPattern pattern = greyPattern();
  pattern.version = 77;
  read(pattern);
  EXPECT_EQ(patterns_.size(), 1u);
}

TEST_F(PatternFile, FindsTheNextPatternByTheLengthOfTheList) {
  TestPattern padded = greyPattern(u"padded");
  padded.padding = Bytes(1000, 0xEE);
  read(TestPatternFile{.patterns = {padded, rgbPattern(u"next")}});
  EXPECT_EQ(names(), (std::vector<std::string>{"padded", "next"}));
}

TEST_F(PatternFile, MisreadsWhatFollowsAUniqueIdThatIsNot36Long) {
  for (const std::string& id : {std::string(35, 'x'), std::string(37, 'x')}) {
    TestPattern pattern = greyPattern();
    pattern.uniqueId = id;
    read(TestPatternFile{.patterns = {greyPattern(u"before"), pattern}});
    EXPECT_EQ(names(), (std::vector<std::string>{"before"})) << id.size();
  }
}

TEST_F(PatternFile, LooksForTheNextPatternWhereADepthWasRefused) {
  for (const uint16_t depth : {uint16_t{1}, uint16_t{32}}) {
    TestPattern refused = greyPattern(u"refused");
    // What follows the compression byte is the next pattern.
    refused.planes = {{.depth = depth, .data = patternBytes(rgbPattern(u"inside"))}};
    read(TestPatternFile{.patterns = {refused}, .count = 2});
    EXPECT_EQ(names(), (std::vector<std::string>{"inside"})) << depth;
  }
}

TEST_F(PatternFile, GoesOnAfterARectangleThatIsImpossible) {
  const TestRectangle impossible[] = {{.top = 5, .left = 0, .bottom = 4, .right = 1},
                                      {.top = 0, .left = 5, .bottom = 1, .right = 4},
                                      {.top = 5, .left = 5, .bottom = 4, .right = 4},
                                      {.top = 0x80000000, .left = 0, .bottom = 0x7FFFFFFF, .right = 1},
                                      {.top = 0, .left = 0x80000000, .bottom = 1, .right = 0}};
  for (const TestRectangle& rectangle : impossible) {
    EXPECT_STREQ(skippedFor(rectangle), "its rectangle is impossible") << rectangle.bottom << " " << rectangle.right;
  }
}

TEST_F(PatternFile, GoesOnAfterAPatternOfMoreThanOneGibibyte) {
  const char* const tooLarge = "it is larger than a picture may be";
  EXPECT_STRNE(skippedFor({.bottom = 16384, .right = 16384}), tooLarge);
  EXPECT_STREQ(skippedFor({.bottom = 16385, .right = 16384}), tooLarge);
  EXPECT_STREQ(skippedFor({.bottom = 0x10000, .right = 0x10000}), tooLarge);
  EXPECT_STREQ(skippedFor({.bottom = 0x7FFFFFFF, .right = 0x7FFFFFFF}), tooLarge);
}

TEST_F(PatternFile, GoesOnAfterAPlaneThatDoesNotFitItsPattern) {
  const TestPlane planes[] = {{.samples = {1, 2, 3}, .rectangle = TestRectangle{.bottom = 3, .right = 1}},
                              {.samples = {1, 2}, .rectangle = TestRectangle{.top = 2, .bottom = 0, .right = 1}},
                              {.samples = {1, 2}, .rectangle = TestRectangle{.top = 1, .left = 2}},
                              {.compression = 1, .data = Bytes{0, 2, 0, 2, 0, 1, 255, 2}}};
  for (const TestPlane& some : planes) {
    TestPattern pattern = greyPattern(u"broken");
    pattern.planes = {some};
    read(TestPatternFile{.patterns = {pattern, rgbPattern(u"next")}});
    EXPECT_EQ(names(), (std::vector<std::string>{"next"}));
  }
}

TEST_F(PatternFile, EndsAfterAListThatReachesBeyondIt) {
  for (const uint32_t length : {0x7FFFFFFFu, 0x80000000u, 0xFFFFFFFFu}) {
    TestPattern far = greyPattern(u"far");
    far.listLength = length;
    read(TestPatternFile{.patterns = {rgbPattern(u"before"), far, rgbPattern(u"after")}});
    EXPECT_EQ(names(), (std::vector<std::string>{"before", "far"})) << length;
    EXPECT_STREQ(report_.problem, "a pattern says that it reaches beyond the end of the file");
  }
}

TEST_F(PatternFile, ReadsAPatternWhoseListEndsTooEarly) {
  TestPattern shortList = greyPattern(u"short");
  shortList.listLength = 4;
  read(shortList);
  EXPECT_EQ(names(), (std::vector<std::string>{"short"}));
  EXPECT_EQ(pixels(), (Bytes{10, 10, 10, 255, 20, 20, 20, 255}));
}

TEST_F(PatternFile, DoesNotTryPatternsBeyondItsEnd) {
  read(TestPatternFile{.patterns = {greyPattern()}, .count = 0x7FFFFFFF});
  EXPECT_EQ(result_, 0);
  EXPECT_EQ(patterns_.size(), 1u);
  EXPECT_EQ(printed_, "Name: grey\n");
  EXPECT_TRUE(report_.failures.empty());
  EXPECT_STREQ(report_.problem, "it ends before all of its patterns");
}

}  // namespace
}  // namespace quiltor
