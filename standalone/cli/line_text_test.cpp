#include "standalone/cli/line_text.h"

#include <gtest/gtest.h>

namespace quiltor::standalone {
namespace {

TEST(LineText, keepsAQuotedTextOnItsLine) { EXPECT_EQ(quoted("Old\nbricks\x1b[2J"), "\"Old bricks [2J\""); }

TEST(LineText, blanksTheControlsBehindAsciiToo) {
  EXPECT_EQ(printable("a\u009B2Jb\u0080\u009F"), "a 2Jb  ");
  EXPECT_EQ(printable("\u00A0\u00C2\xC2"), "\u00A0\u00C2\xC2");
}

TEST(LineText, showsTheBeginningOfANameWithoutEnd) {
  EXPECT_EQ(quotedName("Oak"), "\"Oak\"");
  EXPECT_EQ(quotedName(std::string(61, 'x')), "\"" + std::string(57, 'x') + "...\"");
}

TEST(LineText, countsThings) {
  EXPECT_EQ(counted(0, "pattern"), "0 patterns");
  EXPECT_EQ(counted(1, "pattern"), "1 pattern");
  EXPECT_EQ(counted(2, "library"), "2 libraries");
}

TEST(LineText, numbersThings) {
  EXPECT_EQ(ordinal(1), "1st");
  EXPECT_EQ(ordinal(2), "2nd");
  EXPECT_EQ(ordinal(3), "3rd");
  EXPECT_EQ(ordinal(4), "4th");
  EXPECT_EQ(ordinal(11), "11th");
  EXPECT_EQ(ordinal(113), "113th");
  EXPECT_EQ(ordinal(122), "122nd");
}

TEST(LineText, countsCharactersAndNotBytes) { EXPECT_EQ(columnsOf("Zäune"), 5u); }

TEST(LineText, shortensOnlyWhatIsTooLongAndNeverWithinACharacter) {
  EXPECT_EQ(shortened("bricks", 6), "bricks");
  EXPECT_EQ(shortened("bricks2", 6), "bri...");
  EXPECT_EQ(shortened("Zäune und Häuser", 8), "Zäune...");
}

}  // namespace
}  // namespace quiltor::standalone
