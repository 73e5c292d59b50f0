#include <gtest/gtest.h>

#include "formats/test_pattern_reading.h"
#include "formats/utf16_text.h"

namespace quiltor {
namespace {

using PatternName = PatternFileTest;

TEST_F(PatternName, OutsideAsciiBecomesUtf8) {
  read(TestPatternFile{.patterns = {greyPattern(u"Gr\u00e4ser \u03a9"), rgbPattern(u"\u6a21\u69d8")}});
  EXPECT_EQ(names(), (std::vector<std::string>{"Gr\xC3\xA4ser \xCE\xA9", "\xE6\xA8\xA1\xE6\xA7\x98"}));
}

TEST_F(PatternName, OutsideTheBasicPlaneBecomesUtf8) {
  read(greyPattern(u"\U0001F9F5\U0010FFFF"));
  EXPECT_EQ(names(), (std::vector<std::string>{"\xF0\x9F\xA7\xB5\xF4\x8F\xBF\xBF"}));
}

TEST_F(PatternName, OfLengthZeroIsEmpty) {
  read(TestPatternFile{.patterns = {greyPattern(u""), rgbPattern(u"next")}});
  EXPECT_EQ(names(), (std::vector<std::string>{"", "next"}));
  EXPECT_EQ(printed_, "Name: \nName: next\n");
}

TEST_F(PatternName, EndsAtItsFirstZero) {
  read(TestPatternFile{.patterns = {greyPattern(std::u16string(u"one\0two", 7)), rgbPattern(u"next")}});
  EXPECT_EQ(names(), (std::vector<std::string>{"one", "next"}));
}

TEST_F(PatternName, NeedsNoZeroAtItsEnd) {
  TestPattern pattern = greyPattern(u"abcd");
  pattern.nameCount = 4;
  // The zero that follows counts for the identifier then.
  pattern.uniqueId.resize(34);
  read(pattern);
  EXPECT_EQ(names(), (std::vector<std::string>{"abcd"}));
}

TEST_F(PatternName, IsPrintedForSkippedPatternsToo) {
  TestPattern bitmap = greyPattern(u"bitmap");
  bitmap.mode = 0;
  read(TestPatternFile{.patterns = {rgbPattern(u"\u00e9"), bitmap, rgbPattern(u"last")}});
  EXPECT_EQ(printed_, "Name: \xC3\xA9\nName: bitmap\nName: last\n");
}

TEST_F(PatternName, LongerThanTheFileIsNoName) {
  for (const uint32_t count : {1000u, 0x7FFFFFFFu, 0x80000000u, 0xFFFFFFFFu}) {
    TestPattern pattern = greyPattern();
    pattern.nameCount = count;
    read(pattern);
    EXPECT_EQ(result_, 0);
    EXPECT_TRUE(patterns_.empty()) << count;
    EXPECT_EQ(printed_, "Name: \n");
  }
}

std::string utf8(const std::vector<uint16_t>& units) { return utf16ToUtf8(units); }

TEST(Utf16Text, TakesEveryLengthOfUtf8ToItsLastCharacter) {
  EXPECT_EQ(utf8({0x7F, 0x80, 0x7FF, 0x800, 0xFFFF, 0xD800, 0xDC00}),
            "\x7F\xC2\x80\xDF\xBF\xE0\xA0\x80\xEF\xBF\xBF\xF0\x90\x80\x80");
}

TEST(Utf16Text, ReplacesHalfAPair) {
  const std::string replacement = "\xEF\xBF\xBD";
  EXPECT_EQ(utf8({0xD83E}), replacement);
  EXPECT_EQ(utf8({0xDDF5, 'a'}), replacement + "a");
  EXPECT_EQ(utf8({0xD83E, 'a'}), replacement + "a");
  EXPECT_EQ(utf8({0xD83E, 0xD83E, 0xDDF5}), replacement + "\xF0\x9F\xA7\xB5");
  EXPECT_EQ(utf8({0xD83E, 0, 0xDDF5}), replacement);
}

}  // namespace
}  // namespace quiltor
