#include "library/files/text_pieces.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>

namespace quiltor {
namespace {

using testing::ElementsAre;

std::vector<std::string> split(std::string_view text) {
  std::vector<std::string> pieces = {"left over"};
  splitAtStars(text, pieces);
  return pieces;
}

TEST(SplitAtStars, AnEmptyTextIsOneEmptyPiece) { EXPECT_THAT(split(""), ElementsAre("")); }

TEST(SplitAtStars, TrimsSpacesAndTabsAroundAStar) { EXPECT_THAT(split(" one \t* \ttwo"), ElementsAre("one", "two")); }

TEST(SplitAtStars, ATextThatEndsInAStarHasAnEmptyLastPiece) { EXPECT_THAT(split("one*"), ElementsAre("one", "")); }

TEST(SplitAtStars, KeepsEmptyPieces) { EXPECT_THAT(split("*a**"), ElementsAre("", "a", "", "")); }

TEST(SplitAtStars, KeepsLineEnds) { EXPECT_THAT(split("a*b\r\n"), ElementsAre("a", "b\r\n")); }

TEST(TrimChars, TakesOnlyTheSetAndOnlyAtTheEnds) {
  EXPECT_EQ(trimChars("\r\n a b \t", " \t\r\n"), "a b");
  EXPECT_EQ(trimChars("\ra\r", " "), "\ra\r");
}

TEST(TrimChars, LeavesNothingOfATextOfSuchCharacters) {
  EXPECT_EQ(trimChars(" \t ", " \t"), "");
  EXPECT_EQ(trimChars("", " \t"), "");
}

TEST(ToLowerCopy, LowersLettersAndLeavesOtherBytes) {
  EXPECT_EQ(toLowerCopy("A Pattern.JPG 7\xC3\x84"), "a pattern.jpg 7\xC3\x84");
}

TEST(ReplaceAll, ReplacesEveryOccurrence) {
  EXPECT_EQ(replaceAll("a\\rb\\rc", "\\r", "\r"), "a\rb\rc");
  EXPECT_EQ(replaceAll("nothing", "x", "y"), "nothing");
}

TEST(ReplaceAll, DoesNotSearchWhatItPutIn) { EXPECT_EQ(replaceAll("aXa", "a", "aa"), "aaXaa"); }

TEST(ReplaceAll, AnEmptyTextToReplaceOccursNowhere) { EXPECT_EQ(replaceAll("text", "", "x"), "text"); }

TEST(IntToString, IsPlainDecimal) {
  EXPECT_EQ(intToString(0), "0");
  EXPECT_EQ(intToString(7), "7");
  EXPECT_EQ(intToString(-31), "-31");
  EXPECT_EQ(intToString(std::numeric_limits<int32_t>::min()), "-2147483648");
}

}  // namespace
}  // namespace quiltor
