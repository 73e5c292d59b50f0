#include "description/language/parse_description.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

namespace quiltor {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;

TEST(ParseDescription, AnEmptyTextIsTheInputLayerAlone) {
  const Description description = parseDescription("");
  EXPECT_EQ(description.params.size(), kMaxParams);
  EXPECT_EQ(description.paramCount, 1);
  EXPECT_EQ(description.layerCount, 0);
  EXPECT_EQ(description.params[0].paramName, "in0");
  EXPECT_EQ(description.params[0].displayName, "Source");
  EXPECT_EQ(description.params[0].kind, ParamKind::Layer);
}

TEST(ParseDescription, SectionsTakeTheNextIndexAndTheFirstIsZero) {
  const Description description = parseDescription("[par]\nparam=a\n[par]\nparam=b\n[par]\nparam=c");
  EXPECT_EQ(description.params[0].paramName, "a");
  EXPECT_EQ(description.params[1].paramName, "b");
  EXPECT_EQ(description.params[2].paramName, "c");
  EXPECT_EQ(description.paramCount, 3);
}

TEST(ParseDescription, ANumberAfterParIsTheIndexAndTheNextSectionFollowsIt) {
  const Description description = parseDescription("[par]\ntype=layer\n[par7]\nparam=seven\n[par]\nparam=eight\n");
  EXPECT_EQ(description.params[7].paramName, "seven");
  EXPECT_EQ(description.params[8].paramName, "eight");
  EXPECT_EQ(description.paramCount, 9);
}

TEST(ParseDescription, TwoDigitsOfAnIndexAreRead) {
  EXPECT_EQ(parseDescription("[par12]\nparam=x\n").params[12].paramName, "x");
  EXPECT_EQ(parseDescription("[par123]\nparam=x\n").params[12].paramName, "x");
}

TEST(ParseDescription, AParameterCanBeOpenedAgain) {
  const Description description = parseDescription("[par]\n[par]\nmin=1\n[par]\nmin=2\n[par1]\nmax=9\n");
  EXPECT_EQ(description.params[1].minimum, 1);
  EXPECT_EQ(description.params[1].maximum, 9);
  EXPECT_EQ(description.params[2].minimum, 2);
}

TEST(ParseDescription, ASectionWithoutAnyKeyDoesNotCount) {
  EXPECT_EQ(parseDescription("[par]\n[par]\nmin=1\n[par]\n[par]\n").paramCount, 2);
}

TEST(ParseDescription, SectionsThatTheTableHasNoRoomForAreReadOver) {
  std::string text;
  for (int i = 0; i < 300; ++i) text += "[par]\nmin=" + std::to_string(i) + "\n";
  const Description description = parseDescription(text);
  EXPECT_EQ(description.paramCount, 256);
  EXPECT_EQ(description.params[255].minimum, 255);
}

TEST(ParseDescription, AKeyLineBeforeAnyHeaderChangesNothing) {
  const Description description = parseDescription("type=angle\nparam=a\nname=b\n");
  EXPECT_EQ(description.paramCount, 1);
  EXPECT_EQ(description.params[0].kind, ParamKind::Layer);
  EXPECT_EQ(description.params[0].paramName, "in0");
  EXPECT_EQ(description.settings.name, "");
}

TEST(ParseDescription, CommentsEmptyLinesAndBlanksAroundKeysDoNotMatter) {
  const Description description = parseDescription("; c\r\n\r\n[par]\r\n// c\n/min=5\n;min=6\n\t Min \t=\t 7 \r\n");
  EXPECT_EQ(description.params[0].minimum, 7);
}

TEST(ParseDescription, AKeyEndsAtTheFirstEqualsSign) {
  EXPECT_EQ(parseDescription("[par]\ntext=a=b\n").params[0].popupText, "a=b");
}

TEST(ParseDescription, TheLinesOfUnknownSectionsAreIgnored) {
  const Description description =
      parseDescription("[par]\nmin=1\n[other]\nmin=2\n[parent]\nmin=3\n[script]\nmin=4\n[ps]\nmin=5\n[]\nmin=6\n[");
  EXPECT_EQ(description.params[0].minimum, 1);
  EXPECT_THAT(description.scripts, IsEmpty());
  EXPECT_THAT(description.pixelSources, IsEmpty());
}

TEST(ParseDescription, ParametersWithoutAnIdAreCountedFromTheOffset) {
  const Description description =
      parseDescription("[par]\ntype=layer\n[par]\nmin=1\n[par]\nid=7\n[par]\nmin=1\n[settings]\nid_offset=100\n");
  EXPECT_EQ(description.params[1].id, 101);
  EXPECT_EQ(description.params[2].id, 7);
  EXPECT_EQ(description.params[3].id, 102);
}

TEST(ParseDescription, LayersBesidesTheInputAreCountedUpTo32) {
  EXPECT_EQ(parseDescription("[par]\ntype=layer\n[par]\ntype=layer\n[par]\ntype=int\n").layerCount, 1);
  std::string many;
  for (int i = 0; i < 40; ++i) many += "[par]\ntype=layer\n";
  EXPECT_EQ(parseDescription(many).layerCount, 32);
}

TEST(ParseDescription, SettingsAreStored) {
  const DescriptionSettings settings = parseDescription(
                                           "[settings]\nName=Effect\nheader=h\ndescription=a\\rb\ncategory=c\n"
                                           "uniqueid=u\nlogo=l\nbundlename=b\nid_offset=1\nusegpu=2\nsmooth=3\n"
                                           "range=4\nrepeat=5\ninformat=6\noutformat=7\noutflags=8\noutflags2=9\n"
                                           "pn=10x\nnoinput=1\nbeta=0\nother=1\n")
                                           .settings;
  EXPECT_THAT((std::vector<std::string>{settings.name, settings.header, settings.description, settings.category,
                                        settings.uniqueId, settings.logo, settings.bundleName}),
              ElementsAre("Effect", "h", "a\\rb", "c", "u", "l", "b"));
  EXPECT_THAT(
      (std::vector<int32_t>{settings.idOffset, settings.useGpu, settings.smooth, settings.range, settings.repeat,
                            settings.inFormat, settings.outFormat, settings.outFlags, settings.outFlags2, settings.pn}),
      ElementsAre(1, 2, 3, 4, 5, 6, 7, 8, 9, 10));
  EXPECT_TRUE(settings.noInput);
  EXPECT_FALSE(settings.beta);
}

TEST(ParseDescription, ANameIsCutTo31BytesAndToWholeCharacters) {
  EXPECT_EQ(parseDescription("[settings]\nname=" + std::string(40, 'x')).settings.name, std::string(31, 'x'));
  EXPECT_EQ(parseDescription("[settings]\nname=" + std::string(30, 'x') + "é").settings.name, std::string(30, 'x'));
}

TEST(ParseDescription, TheUniqueIdIsTheNameUnlessTheTextSetsOne) {
  EXPECT_EQ(parseDescription("[settings]\nname=n\n").settings.uniqueId, "n");
  EXPECT_EQ(parseDescription("[settings]\nname=n\nuniqueid=u\n").settings.uniqueId, "u");
}

TEST(ParseDescription, AVersionIsThreeNumbersAndMissingOnesAreZero) {
  const auto version = [](const std::string& text) {
    const DescriptionSettings settings = parseDescription(text).settings;
    return std::vector<int32_t>{settings.versionMajor, settings.versionMinor, settings.versionBug};
  };
  EXPECT_THAT(version("[settings]\nversion=2.14.3\n"), ElementsAre(2, 14, 3));
  EXPECT_THAT(version("[settings]\nversion=2.5\n"), ElementsAre(2, 5, 0));
  EXPECT_THAT(version("[settings]\nversion=3\n"), ElementsAre(3, 0, 0));
  EXPECT_THAT(version("[settings]\nname=n\n"), ElementsAre(1, 0, 0));
}

TEST(ParseDescription, SourceSectionsKeepTheirLinesAsTheyAre) {
  const Description description = parseDescription(
      "[script2]\r\n  if (a=1)\r\n\r\n/* c */ x;\r\n[ps1]\nreturn 1;\n[vs]\nv\n\tw\n[script2]\nlast\n[par]\nmin=1\n");
  EXPECT_THAT(description.scripts, ElementsAre(Pair(2, "  if (a=1)\n\n/* c */ x;\nlast")));
  EXPECT_THAT(description.pixelSources, ElementsAre(Pair(1, "return 1;")));
  EXPECT_EQ(description.vertexSource, "v\n\tw");
  EXPECT_EQ(description.params[0].minimum, 1);
}

TEST(ParseDescription, PresetSectionsGiveValuesToNamedParameters) {
  const Description description = parseDescription(
      "[par]\ntype=layer\n[par]\nparam=size_x\ndefault=9\n[preset3_size_x]\ndefault=1|2\n[preset4_size_x]\n"
      "[preset3_missing]\ndefault=5\n[preset_size_x]\ndefault=6\n");
  ASSERT_EQ(description.presets.size(), 2U);
  EXPECT_EQ(description.presets[0].preset, 3);
  EXPECT_EQ(description.presets[0].paramIndex, 1);
  EXPECT_THAT(description.presets[0].value, ElementsAre(1, 2, 0, 0));
  EXPECT_EQ(description.presets[1].preset, 4);
  EXPECT_THAT(description.presets[1].value, ElementsAre(9, 0, 0, 0));
  EXPECT_THAT(description.params[1].defaultValue, ElementsAre(9, 0, 0, 0));
}

}  // namespace
}  // namespace quiltor
