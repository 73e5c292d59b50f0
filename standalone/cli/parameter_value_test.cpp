#include "standalone/cli/parameter_value.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "standalone/cli/command_error.h"
#include "standalone/cli/test_parameters.h"

namespace quiltor::standalone {
namespace {

// The text of the error that a value meets; empty when it is taken.
std::string rejection(const Parameter& parameter, std::string_view text) {
  try {
    static_cast<void>(parseParameterValue(parameter, text));
  } catch (const UsageError& error) {
    return error.what();
  }
  return "";
}

const Parameter kOpacity = makePercentSlider("Opacity", 0, 100, 100);
const Parameter kMode = makePopup("Blend Mode", "Normal|Multiply|(-|Soft Light|Hard Light", 1);

TEST(ParameterValue, readsSliderNumbersWithAndWithoutPercentSign) {
  EXPECT_EQ(std::get<double>(parseParameterValue(kOpacity, "70%")), 70);
  EXPECT_EQ(std::get<double>(parseParameterValue(kOpacity, "12.5")), 12.5);
}

TEST(ParameterValue, takesBothEndsOfARangeAndNothingBeyond) {
  EXPECT_EQ(std::get<double>(parseParameterValue(kOpacity, "0")), 0);
  EXPECT_EQ(std::get<double>(parseParameterValue(kOpacity, "100%")), 100);
  EXPECT_EQ(rejection(kOpacity, "100.5"),
            "Opacity: \"100.5\": expected a number from 0 to 100, with or without a percent sign");
  EXPECT_NE(rejection(kOpacity, "-1"), "");
  EXPECT_NE(rejection(kOpacity, "many"), "");
}

TEST(ParameterValue, rejectsAPercentSignWhereNoPercentAreShown) {
  Parameter plain = kOpacity;
  plain.definition.u.fs_d.display_flags = PF_ValueDisplayFlag_NONE;
  EXPECT_EQ(rejection(plain, "70%"), "Opacity: \"70%\": expected a number from 0 to 100");
}

TEST(ParameterValue, readsItemsByNameInAnyCase) {
  EXPECT_EQ(std::get<ChosenItem>(parseParameterValue(kMode, "soft light")).item, 4);
}

TEST(ParameterValue, readsItemsByNumberFromOne) {
  EXPECT_EQ(std::get<ChosenItem>(parseParameterValue(kMode, "1")).item, 1);
  EXPECT_EQ(std::get<ChosenItem>(parseParameterValue(kMode, "5")).item, 5);
  EXPECT_NE(rejection(kMode, "0"), "");
  EXPECT_NE(rejection(kMode, "6"), "");
  EXPECT_NE(rejection(kMode, "1.5"), "");
}

TEST(ParameterValue, neverChoosesASeparator) {
  EXPECT_NE(rejection(kMode, "3"), "");
  EXPECT_NE(rejection(kMode, "(-"), "");
}

TEST(ParameterValue, suggestsTheItemThatWasNearlyTyped) {
  EXPECT_EQ(rejection(kMode, "Softlight"),
            "Blend Mode: \"Softlight\": expected the name or number of an item; did you mean \"Soft Light\"?");
}

TEST(ParameterValue, listsTheItemsWhenNothingIsNear) {
  EXPECT_EQ(rejection(kMode, "brick"),
            "Blend Mode: \"brick\": expected one of Normal, Multiply, Soft Light, Hard Light, or a number from 1 to 5");
}

TEST(ParameterValue, readsDegrees) {
  const Parameter rotation = makeParameter(PF_Param_ANGLE, "Rotation");
  EXPECT_EQ(std::get<double>(parseParameterValue(rotation, "-12.5")), -12.5);
  EXPECT_EQ(rejection(rotation, "40000"), "Rotation: \"40000\": expected degrees, such as 30 or -12.5");
}

TEST(ParameterValue, readsSwitches) {
  const Parameter lock = makeParameter(PF_Param_CHECKBOX, "Lock Pattern");
  for (const char* on : {"on", "Yes", "true", "1"}) EXPECT_TRUE(std::get<bool>(parseParameterValue(lock, on))) << on;
  for (const char* off : {"off", "No", "false", "0"}) {
    EXPECT_FALSE(std::get<bool>(parseParameterValue(lock, off))) << off;
  }
  EXPECT_EQ(rejection(lock, "maybe"), "Lock Pattern: \"maybe\": expected on or off");
}

TEST(ParameterValue, readsColours) {
  const Parameter tint = makeParameter(PF_Param_COLOR, "Tint Color");
  const PF_Pixel color = std::get<PF_Pixel>(parseParameterValue(tint, "#49Bc38"));
  EXPECT_EQ(color.alpha, 255);
  EXPECT_EQ(color.red, 0x49);
  EXPECT_EQ(color.green, 0xbc);
  EXPECT_EQ(color.blue, 0x38);
}

TEST(ParameterValue, rejectsColoursOfAnotherForm) {
  const Parameter tint = makeParameter(PF_Param_COLOR, "Tint Color");
  for (const char* text : {"49bc38", "#49bc3", "#49bc388", "#49bc3g", "#+9bc38", "# 9bc38", "green", ""}) {
    EXPECT_EQ(rejection(tint, text), "Tint Color: \"" + std::string(text) + "\": expected a colour such as #49bc38");
  }
}

TEST(ParameterValue, readsPointsInPercentAndInPixels) {
  const Parameter offset = makeParameter(PF_Param_POINT, "Offset");
  const auto percent = std::get<PointValue>(parseParameterValue(offset, "25%,75.5%"));
  EXPECT_TRUE(percent.percent);
  EXPECT_EQ(percent.x, 25);
  EXPECT_EQ(percent.y, 75.5);
  const auto pixels = std::get<PointValue>(parseParameterValue(offset, "960,-540"));
  EXPECT_FALSE(pixels.percent);
  EXPECT_EQ(pixels.x, 960);
  EXPECT_EQ(pixels.y, -540);
}

TEST(ParameterValue, rejectsPointsOfMixedOrMissingParts) {
  const Parameter offset = makeParameter(PF_Param_POINT, "Offset");
  for (const char* text : {"50%", "50%,50", "50,50%", "1,2,3", "40000,0", "a,b", ""}) {
    EXPECT_EQ(rejection(offset, text), "Offset: \"" + std::string(text) +
                                           "\": expected a point such as 50%,50% of the layer or 960,540 in pixels");
  }
}

TEST(ParameterValue, readsOneOfTheMasksByItsIdentifier) {
  const Parameter mask = makeParameter(PF_Param_PATH, "Mask");
  const std::vector<int32_t> masks{7, 2};
  EXPECT_EQ(std::get<ChosenMask>(parseParameterValue(mask, "2", masks)).id, 2);
  EXPECT_EQ(std::get<ChosenMask>(parseParameterValue(mask, "None", masks)).id, 0);
  EXPECT_EQ(std::get<ChosenMask>(parseParameterValue(mask, "none")).id, 0);
  for (const char* text : {"0", "1", "2.5", "many", ""}) {
    try {
      static_cast<void>(parseParameterValue(mask, text, masks));
      ADD_FAILURE() << text;
    } catch (const UsageError& error) {
      EXPECT_EQ(error.what(),
                "Mask: \"" + std::string(text) + "\": expected none, or the id of a mask of the file: 7, 2");
    }
  }
  EXPECT_EQ(rejection(mask, "2"),
            "Mask: \"2\": expected none; the masks that could be chosen are given with --masks FILE");
}

TEST(ParameterValue, saysHowPicturesAreGivenInstead) {
  EXPECT_THAT(rejection(makeParameter(PF_Param_LAYER, "Pattern Layer"), "a.png"),
              testing::HasSubstr("--pattern-layer FILE"));
  EXPECT_THAT(rejection(makeParameter(PF_Param_ARBITRARY_DATA, "Pattern"), "a.png"),
              testing::HasSubstr("--pattern FILE"));
}

}  // namespace
}  // namespace quiltor::standalone
