#include "standalone/cli/number_text.h"

#include <gtest/gtest.h>

namespace quiltor::standalone {
namespace {

TEST(NumberText, readsDecimalNumbersWithSigns) {
  EXPECT_EQ(parseNumber("12.5"), 12.5);
  EXPECT_EQ(parseNumber("-3"), -3.0);
  EXPECT_EQ(parseNumber("+7"), 7.0);
}

TEST(NumberText, rejectsWhatIsNotANumberAsAWhole) {
  for (const char* text : {"", "+", "+-1", "1x", " 1", "1 ", "nan", "inf", "1e999", "1,5"}) {
    EXPECT_FALSE(parseNumber(text)) << text;
  }
}

TEST(NumberText, readsAPairWithOneComma) {
  const auto pair = parsePair("960,-540.5");
  ASSERT_TRUE(pair);
  EXPECT_EQ(pair->first, 960);
  EXPECT_EQ(pair->second, -540.5);
}

TEST(NumberText, rejectsHalfAPair) {
  for (const char* text : {"1", "1,", ",1", "1,2,3", "a,b"}) EXPECT_FALSE(parsePair(text)) << text;
}

TEST(NumberText, writesTheShortestText) {
  EXPECT_EQ(formatNumber(100), "100");
  EXPECT_EQ(formatNumber(0.5), "0.5");
  EXPECT_EQ(formatNumber(-12.25), "-12.25");
}

}  // namespace
}  // namespace quiltor::standalone
