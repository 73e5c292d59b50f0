#include "standalone/cli/parameter_lookup.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "standalone/cli/command_error.h"
#include "standalone/cli/test_parameters.h"

namespace quiltor::standalone {
namespace {

const std::vector<Parameter> kParameters = quiltorParameters();

std::string rejection(std::string_view text) {
  try {
    static_cast<void>(parseAssignment(kParameters, text));
  } catch (const UsageError& error) {
    return error.what();
  }
  return "";
}

TEST(ParameterLookup, findsAParameterByItsShortName) { EXPECT_EQ(findParameter(kParameters, "blendmode"), 6); }

TEST(ParameterLookup, findsAParameterByItsDisplayNameInAnyCase) {
  EXPECT_EQ(findParameter(kParameters, "blend mode"), 6);
}

TEST(ParameterLookup, givesNoShortNameToAnotherEffectsParameter) {
  EXPECT_EQ(shortName(kParameters, 7), "opacity");
  EXPECT_EQ(shortName(kParameters, 8), "");
  EXPECT_EQ(findParameter(kParameters, "Strength"), 8);
}

TEST(ParameterLookup, neverFindsTheInputLayer) { EXPECT_NE(rejection("in0=1"), ""); }

TEST(ParameterLookup, neverFindsAnEmptyName) { EXPECT_NE(rejection("=1"), ""); }

TEST(ParameterLookup, splitsAtTheFirstEqualsSign) {
  const Assignment assignment = parseAssignment(kParameters, "opacity=70%");
  EXPECT_EQ(assignment.index, 7);
  EXPECT_EQ(std::get<double>(assignment.value), 70);
  EXPECT_EQ(rejection("tilemode=a=b"),
            "Tile Mode: \"a=b\": expected one of Single, Tiled, Mirrored, or a number from 1 to 3");
}

TEST(ParameterLookup, suggestsTheNameThatWasNearlyTyped) {
  EXPECT_EQ(rejection("opacty=70%"), "\"opacty\": the effect has no parameter of this name; did you mean \"opacity\"?");
}

TEST(ParameterLookup, saysWhereNamesAreListedWhenNothingIsNear) {
  EXPECT_EQ(rejection("gamma=2"), "\"gamma\": the effect has no parameter of this name; `quiltor params` lists them");
}

TEST(ParameterLookup, asksForAValue) {
  EXPECT_EQ(rejection("opacity"), "--set: \"opacity\": expected NAME=VALUE, such as opacity=70%");
}

}  // namespace
}  // namespace quiltor::standalone
