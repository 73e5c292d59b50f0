#include "description/language/text_pieces.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "description/language/numbers.h"

namespace quiltor {
namespace {

using testing::ElementsAre;

TEST(TextPieces, TrimmingTakesBlanksTabsAndLineEndsFromBothEndsOnly) {
  EXPECT_EQ(trimmed(" \t\r\n a b\t \r\n"), "a b");
  EXPECT_EQ(trimmed(" \t "), "");
}

TEST(TextPieces, SplittingKeepsEmptyPieces) {
  EXPECT_THAT(splitAt("a||b|", '|'), ElementsAre("a", "", "b", ""));
  EXPECT_THAT(splitAt("", '|'), ElementsAre(""));
}

TEST(TextPieces, OnlyTheLettersOfAsciiAreMadeSmall) { EXPECT_EQ(lowerCased("GroupÄ@[Z"), "groupÄ@[z"); }

TEST(TextPieces, ACutNeverLeavesHalfACharacter) {
  EXPECT_EQ(cutToBytes("abc", 3), "abc");
  EXPECT_EQ(cutToBytes("abcd", 3), "abc");
  EXPECT_EQ(cutToBytes("abé", 3), "ab");
  EXPECT_EQ(cutToBytes("ab€", 4), "ab");
  EXPECT_EQ(cutToBytes("a😀b", 4), "a");
  EXPECT_EQ(cutToBytes("a😀b", 5), "a😀");
}

TEST(TextPieces, ATextThatIsNotUtf8IsCutAnywhere) {
  EXPECT_EQ(cutToBytes("\x80\x80\x80\x80\x80\x80", 5), "\x80\x80\x80\x80\x80");
  EXPECT_EQ(cutToBytes("\x80\x80\x80", 1), "\x80");
}

TEST(Numbers, ReadTheLeadingNumberAndIgnoreTheRest) {
  EXPECT_EQ(readInteger("100 default=0"), 100);
  EXPECT_EQ(readInteger(" -7.9"), -7);
  EXPECT_EQ(readInteger("+5"), 5);
  EXPECT_EQ(readFloat("0.5 "), 0.5F);
  EXPECT_EQ(readFloat("\t-1.25e1x"), -12.5F);
  EXPECT_EQ(readFloat("+.5"), 0.5F);
}

TEST(Numbers, AreZeroWhenNothingReads) {
  for (const char* text : {"", " ", "+", "-", "+-1", "x1", ",5"}) {
    EXPECT_EQ(readInteger(text), 0) << text;
    EXPECT_EQ(readFloat(text), 0.0F) << text;
  }
}

TEST(Numbers, ThatAreTooLargeBecomeTheNearestIntegerOrAZeroFloat) {
  EXPECT_EQ(readInteger("99999999999"), std::numeric_limits<int32_t>::max());
  EXPECT_EQ(readInteger("-99999999999"), std::numeric_limits<int32_t>::min());
  EXPECT_EQ(readFloat("1e999"), 0.0F);
}

}  // namespace
}  // namespace quiltor
