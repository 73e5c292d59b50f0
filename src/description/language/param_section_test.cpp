#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "description/language/parse_description.h"

namespace quiltor {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

// The parameter that a section with these lines describes, at index 1.
ParamRecord paramOf(const std::string& lines) {
  return parseDescription("[par]\ntype=layer\n[par]\n" + lines + "\n").params[1];
}

TEST(ParamSection, MaxAndDefaultOnOneLineSetTheMaximumAndNotTheDefault) {
  const ParamRecord param = paramOf("type=float\ndefault=3\nmax=100 default=0");
  EXPECT_EQ(param.maximum, 100);
  EXPECT_EQ(param.defaultValue[0], 3);
}

TEST(ParamSection, ADefaultIsUpToThreeNumbersBetweenBarsAndBlanksAreIgnored) {
  EXPECT_THAT(paramOf("type=point\ndefault=0.5|0.5 ").defaultValue, ElementsAre(0.5F, 0.5F, 0, 0));
  EXPECT_THAT(paramOf("default=1| 2 |3|4").defaultValue, ElementsAre(1, 2, 3, 0));
  EXPECT_THAT(paramOf("default=1|2|3\ndefault=x|5").defaultValue, ElementsAre(0, 5, 0, 0));
}

TEST(ParamSection, ADefaultOfTrueIsOneAndFalseIsZero) {
  EXPECT_THAT(paramOf("type=bool\ndefault=true").defaultValue, ElementsAre(1, 0, 0, 0));
  EXPECT_THAT(paramOf("type=bool\ndefault=1\ndefault=false").defaultValue, ElementsAre(0, 0, 0, 0));
}

TEST(ParamSection, TheCurrentValueFollowsTheDefault) {
  EXPECT_THAT(paramOf("default=1|2").currentValue, ElementsAre(1, 2, 0, 0));
}

TEST(ParamSection, TimeSetsTheFirstComponentOfTheDefaultOnly) {
  const ParamRecord param = paramOf("default=1|2\ntime=-3");
  EXPECT_THAT(param.defaultValue, ElementsAre(-3, 2, 0, 0));
  EXPECT_THAT(param.currentValue, ElementsAre(1, 2, 0, 0));
}

TEST(ParamSection, GroupKeysAreMatchedInAnyCase) {
  EXPECT_EQ(paramOf("Group=112").groups[0], 112);
  EXPECT_EQ(paramOf("group=112").groups[0], 112);
  EXPECT_EQ(paramOf("GroupSwitch=112").groups[0], -112);
  EXPECT_EQ(paramOf("groupswitch=112").groups[0], -112);
}

TEST(ParamSection, ANumberAfterGroupIsTheSlot) {
  const ParamRecord param = paramOf("group=1\ngroup1=2\nGroup15=3\ngroup16=4\ngroup-1=5\ngroupx=6\ngroup99999999999=7");
  EXPECT_THAT(param.groups, ElementsAre(1, 2, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 3));
  EXPECT_EQ(param.flags, 0) << "slot 16 lies in the next field";
}

TEST(ParamSection, FlagsOf901OrMoreWithEitherSignAreSpecial) {
  const std::vector<std::pair<std::string, std::pair<int32_t, int32_t>>> cases = {
      {"950", {0, 950}},   {"901", {0, 901}},   {"900", {900, 0}},
      {"-900", {-900, 0}}, {"-901", {0, -901}}, {"-2147483648", {0, -2147483647 - 1}}};
  for (const auto& [value, expected] : cases) {
    const ParamRecord param = paramOf("flags=" + value);
    EXPECT_EQ(param.flags, expected.first) << value;
    EXPECT_EQ(param.special, expected.second) << value;
  }
  EXPECT_EQ(paramOf("special=5").special, 5);
}

TEST(ParamSection, EveryTypeKeywordHasItsCodeInAnyCase) {
  const std::vector<std::pair<std::string, int>> codes = {
      {"none", -1},     {"int", 0},     {"check", 1},   {"bool", 1},  {"popup", 2}, {"select", 2},
      {"layer", 3},     {"float", 4},   {"color", 5},   {"angle", 6}, {"point", 7}, {"topic_start", 8},
      {"topic_end", 9}, {"custom", 10}, {"button", 11}, {"vec2", 12}, {"VEC3", 13}, {"Text", 14}};
  for (const auto& [keyword, code] : codes) {
    EXPECT_EQ(static_cast<int>(paramOf("type=angle\ntype=" + keyword).kind), code) << keyword;
  }
}

TEST(ParamSection, AnUnknownTypeChangesNothing) {
  EXPECT_EQ(paramOf("type=angle\ntype=angles").kind, ParamKind::Angle);
}

TEST(ParamSection, TheTypeDecidesHowManyNumbersAValueHas) {
  const std::vector<std::pair<std::string, int>> components = {
      {"type=float", 1},           {"type=vec2", 2},
      {"type=point", 2},           {"type=vec3", 3},
      {"type=color", 3},           {"type=layer", 0},
      {"type=select", 1},          {"type=select\nflags=1", 0},
      {"flags=99\ntype=popup", 0}, {"type=select\nflags=950", 1},
      {"type=float\nflags=1", 1}};
  for (const auto& [lines, count] : components) EXPECT_EQ(paramOf(lines).components, count) << lines;
}

TEST(ParamSection, NamesFillOneAnotherWhereTheyAreMissing) {
  EXPECT_EQ(paramOf("param=a").displayName, "a");
  EXPECT_EQ(paramOf("display=A").paramName, "A");
  EXPECT_EQ(paramOf("name0=A").paramName, "A");
  const ParamRecord both = paramOf("name=Shown\nparam=a");
  EXPECT_EQ(both.paramName, "a");
  EXPECT_EQ(both.displayName, "Shown");
  EXPECT_EQ(paramOf("display=par\nparam=a").displayName, "a");
  EXPECT_THAT(paramOf("name1=1\nname2=2\nname3=3\nname4=4").alternateNames, ElementsAre("1", "2", "3", "4"));
}

TEST(ParamSection, APopupsTextIsSplitIntoItemsAndGivesTheMaximum) {
  const ParamRecord param = paramOf("type=select\ntext=One|Two|Three");
  EXPECT_EQ(param.popupText, "One|Two|Three");
  EXPECT_THAT(param.popupItems, ElementsAre("One", "Two", "Three"));
  EXPECT_EQ(param.maximum, 2);
  EXPECT_EQ(param.displayMaximum, 2);
}

TEST(ParamSection, AMaximumInTheTextStandsAboveThePopupsItems) {
  EXPECT_EQ(paramOf("type=select\ntext=One|Two|Three\nmax=1").maximum, 1);
  EXPECT_EQ(paramOf("type=select\nmax=0\ntext=One|Two|Three").maximum, 0);
}

TEST(ParamSection, APopupWithoutTextHasNoItemsAndNoMaximum) {
  EXPECT_THAT(paramOf("type=select\nflags=99").popupItems, IsEmpty());
  EXPECT_EQ(paramOf("type=select\nflags=99").maximum, 0);
}

TEST(ParamSection, OnlyPopupsTakeAMaximumFromTheirText) {
  const ParamRecord param = paramOf("type=float\ntext=0|1000");
  EXPECT_EQ(param.popupText, "0|1000");
  EXPECT_EQ(param.maximum, 0);
}

TEST(ParamSection, TheDefaultOfATextParameterIsItsText) {
  const ParamRecord param = paramOf("type=text\ndefault=Hello|1");
  EXPECT_EQ(param.popupText, "Hello|1");
  EXPECT_THAT(param.popupItems, ElementsAre("Hello|1"));
  EXPECT_EQ(param.defaultValue[0], 0);
}

TEST(ParamSection, TheDisplayRangeIsTheRangeUnlessTheTextSetsOne) {
  const ParamRecord plain = paramOf("min=1\nmax=9");
  EXPECT_EQ(plain.displayMinimum, 1);
  EXPECT_EQ(plain.displayMaximum, 9);
  const ParamRecord own = paramOf("min=1\nmax=9\ndisplaymin=2\ndisplaymax=3");
  EXPECT_EQ(own.displayMinimum, 2);
  EXPECT_EQ(own.displayMaximum, 3);
}

TEST(ParamSection, AnUnknownKeyIsIgnoredAndDoesNotCountAsAParameter) {
  const Description description = parseDescription("[par]\ntype=layer\n[par]\ncolour=red\nnonsense\n= 3\n");
  EXPECT_EQ(description.paramCount, 1);
}

TEST(ParamSection, VisibilityAndIdAreStored) {
  const ParamRecord param = paramOf("visibility=2\nid=40");
  EXPECT_EQ(param.visibility, 2);
  EXPECT_EQ(param.id, 40);
}

}  // namespace
}  // namespace quiltor
