#include "library/cache_names.h"

#include <gtest/gtest.h>

namespace quiltor {
namespace {

TEST(PathHash, IsThatOfThePrintableCharacters) {
  EXPECT_EQ(pathHash(""), 0);
  EXPECT_EQ(pathHash("a"), 97);
  EXPECT_EQ(pathHash("ab"), 97 * 31 + 98);
  EXPECT_EQ(pathHash(" ~"), 32 * 31 + 126);
  EXPECT_EQ(pathHash("\x1F\x7F\t"), 0);
}

TEST(PathHash, WrapsToNegativeNumbers) {
  // 97 * (31^6 + ... + 1), taken modulo 2^32, is past the largest signed number.
  int64_t exact = 0;
  for (int i = 0; i < 7; ++i) exact = exact * 31 + 97;
  EXPECT_EQ(pathHash("aaaaaaa"), static_cast<int32_t>(static_cast<uint32_t>(exact)));
  EXPECT_LT(pathHash("aaaaaaa"), 0);
}

TEST(PathHash, LeavesSeparatorsOut) { EXPECT_EQ(pathHash("C:\\lib\\a.png"), pathHash("C:/lib/a.png")); }

TEST(PathHash, LeavesCharactersOutsideAsciiOut) {
  EXPECT_EQ(pathHash("/M\xC3\xBCster/\xE6\xA8\xA1.png"), pathHash("Mster.png"));
}

TEST(PatternFileName, IsBehindTheLastSeparatorWithItsCaseKept) {
  EXPECT_EQ(patternFileName("/lib/Wood Grain.PAT"), "Wood Grain");
  EXPECT_EQ(patternFileName("C:\\lib\\Oak.pat"), "Oak");
  EXPECT_EQ(patternFileName("C:Oak.pat"), "Oak");
  EXPECT_EQ(patternFileName("Oak.v2.pat"), "Oak.v2");
  EXPECT_EQ(patternFileName("lib/.pat"), "");
}

TEST(PatternFileName, KeepsASeparatorThatStandsBeforeEverythingElse) { EXPECT_EQ(patternFileName("/Oak.pat"), "/Oak"); }

TEST(ConvertedPatternPath, PadsTheIndexToTwoDigits) {
  EXPECT_EQ(convertedPatternPath("/root", "Oak", 0), "/root/Oak/Oak_00.png");
  EXPECT_EQ(convertedPatternPath("/root", "Oak", 9), "/root/Oak/Oak_09.png");
  EXPECT_EQ(convertedPatternPath("/root", "Oak", 10), "/root/Oak/Oak_10.png");
  EXPECT_EQ(convertedPatternPath("/root", "Oak", 100), "/root/Oak/Oak_100.png");
}

}  // namespace
}  // namespace quiltor
