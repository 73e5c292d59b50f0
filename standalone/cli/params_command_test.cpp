#include "standalone/cli/params_command.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <sstream>
#include <string>

#include "standalone/cli/test_parameters.h"

namespace quiltor::standalone {
namespace {

using testing::ContainsRegex;
using testing::HasSubstr;
using testing::Not;

std::string table(const std::vector<Parameter>& parameters) {
  std::ostringstream out;
  printParameters(parameters, out);
  return out.str();
}

TEST(ParamsTable, showsNamesKindDefaultAndItems) {
  EXPECT_THAT(table(quiltorParameters()),
              ContainsRegex("tilemode +Tile Mode +popup +Tiled +Single, Tiled, Mirrored\n"));
}

TEST(ParamsTable, showsRangesInTheirUnit) {
  EXPECT_THAT(table(quiltorParameters()), ContainsRegex("opacity +Opacity +slider +100% +0 to 100%\n"));
}

TEST(ParamsTable, leavesTheInputLayerOut) { EXPECT_THAT(table(quiltorParameters()), Not(HasSubstr("in0"))); }

TEST(ParamsTable, marksParametersWithoutShortName) {
  EXPECT_THAT(table(quiltorParameters()), ContainsRegex("\n- +Strength "));
}

TEST(ParamsTable, showsColoursAndPointsAsTheyAreTyped) {
  Parameter tint = makeParameter(PF_Param_COLOR, "Tint");
  tint.definition.u.cd.dephault = {.alpha = 255, .red = 183, .green = 68, .blue = 10};
  Parameter point = makeParameter(PF_Param_POINT, "Place");
  point.definition.u.td.x_dephault = 50 << 16;
  point.definition.u.td.y_dephault = (25 << 16) + (1 << 15);
  const std::string text = table({{}, tint, point});
  EXPECT_THAT(text, HasSubstr("#b7440a"));
  EXPECT_THAT(text, HasSubstr("50%,25.5%"));
}

TEST(ParamsTable, breaksLongListsBetweenItems) {
  std::string items = "First";
  for (int i = 0; i < 40; ++i) items += "|Another Item";
  std::istringstream lines(table({{}, makePopup("Many", items, 1)}));
  for (std::string line; std::getline(lines, line);) {
    EXPECT_LE(line.size(), 110U) << line;
    EXPECT_TRUE(line.ends_with("Item,") || line.ends_with("Item") || line.ends_with("VALUES")) << line;
  }
}

}  // namespace
}  // namespace quiltor::standalone
