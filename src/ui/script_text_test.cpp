#include "ui/script_text.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>

#include "ui/dialog_scripts.h"
#include "ui/script_runner.h"

namespace quiltor {
namespace {

TEST(LiteralText, KeepsPlainText) { EXPECT_EQ(literalText("C:/A b (1)/x_2.png"), "C:/A b (1)/x_2.png"); }

TEST(LiteralText, WritesWhatCouldEndTheLiteralAsNumbers) {
  EXPECT_EQ(literalText("a\"b"), "a\\u0022b");
  EXPECT_EQ(literalText("a'b"), "a\\u0027b");
  EXPECT_EQ(literalText("C:\\new"), "C:\\u005Cnew");
  EXPECT_EQ(literalText("a\nb\rc\td\x7F"), "a\\u000Ab\\u000Dc\\u0009d\\u007F");
}

TEST(LiteralText, WritesNonAsciiAsUtf16) {
  EXPECT_EQ(literalText("\xC3\xA4"), "\\u00E4");
  EXPECT_EQ(literalText("\xE2\x80\xA8"), "\\u2028");
  EXPECT_EQ(literalText("\xF0\x9F\x98\x80"), "\\uD83D\\uDE00");
  EXPECT_EQ(literalText("\xEF\xBF\xBD"), "\\uFFFD");
  EXPECT_EQ(literalText("\xF4\x8F\xBF\xBF"), "\\uDBFF\\uDFFF");
}

TEST(LiteralText, ReplacesWhatIsNotUtf8) {
  for (const char* text : {"\x80", "\xC3", "\xFF", "\xC0", "\xF5"}) EXPECT_EQ(literalText(text), "\\uFFFD") << text;
  EXPECT_EQ(literalText("a\xC3(b"), "a\\uFFFD(b");
  EXPECT_EQ(literalText("\xC0\xAF"), "\\uFFFD\\uFFFD");
  EXPECT_EQ(literalText("\xE0\x80\xAF"), "\\uFFFD\\uFFFD\\uFFFD");
  EXPECT_EQ(literalText("\xED\xA0\x80"), "\\uFFFD\\uFFFD\\uFFFD") << "half a surrogate pair";
  EXPECT_EQ(literalText("\xF4\x90\x80\x80"), "\\uFFFD\\uFFFD\\uFFFD\\uFFFD") << "beyond the last character";
}

TEST(LiteralText, HoldsNoPlaceholder) { EXPECT_EQ(literalText("a#v1#IMGPATH"), "a\\u0023v1\\u0023IMGPATH"); }

TEST(FillPlaceholders, FillsEachWhereverItStands) {
  EXPECT_EQ(fillPlaceholders("#WIDTH #HEIGHT #X_POS #Y_POS #IMGPATH #v1 #v2 #WIDTH #v2", {12, -7}, {"p.png", "L", "N"}),
            "800 600 12 -7 p.png L N 800 N");
}

TEST(FillPlaceholders, FillsWhatIsMissingWithNothing) {
  EXPECT_EQ(fillPlaceholders("[#IMGPATH|#v1|#v2]", {}, parseSelection("p.png")), "[p.png||]");
  EXPECT_EQ(fillPlaceholders("[#IMGPATH|#v1|#v2]", {}, parseSelection("p.png*****L")), "[p.png|L|]");
  EXPECT_EQ(fillPlaceholders("[#IMGPATH|#v1|#v2]", {}, parseSelection("")), "[||]");
}

TEST(FillPlaceholders, FillsNoValueTwice) {
  EXPECT_EQ(fillPlaceholders("\"#IMGPATH\" \"#v1\" \"#v2\"", {}, {"a#v1", "b#v2", "c#IMGPATH"}),
            "\"a\\u0023v1\" \"b\\u0023v2\" \"c\\u0023IMGPATH\"");
}

TEST(FillPlaceholders, LeavesNoneInTheDialogs) {
  for (const std::string_view script : {galleryScript(), settingsScript()}) {
    const std::string filled = fillPlaceholders(script, {1, 2}, {"#WIDTH", "#X_POS", "#v1"});
    for (const char* placeholder : {"#WIDTH", "#HEIGHT", "#X_POS", "#Y_POS", "#IMGPATH", "#v1", "#v2"}) {
      EXPECT_EQ(filled.find(placeholder), std::string::npos) << placeholder;
    }
  }
}

// A path and a name are 260 characters at most in the hosts' system, and none takes more room than these.
TEST(FillPlaceholders, LeavesRoomInTheDialogsForTheLongestValues) {
  const std::string longest(260, '#');
  for (const std::string_view script : {galleryScript(), settingsScript()}) {
    const std::string filled =
        fillPlaceholders(script, {-2147483647 - 1, -2147483647 - 1}, {longest, longest, longest});
    EXPECT_LE(filled.size(), kMostScriptBytes);
  }
}

}  // namespace
}  // namespace quiltor
