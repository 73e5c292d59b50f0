// Parameters of kinds that the built-in description has none of, in a strict host.
#include <gmock/gmock.h>

#include <vector>

#include "tests/described/described_test.h"
#include "tests/support/flat_sequence.h"

namespace quiltor::described_tests {
namespace {

using standalone::Instance;

constexpr char kTexts[] = R"([par]
 type=layer
[par]
 type=text
 param=first
 default=hello
 special=5
[par]
 type=text
 param=second
 default=a|b
 special=-7
[par]
 type=text
 param=beyond
 default=nowhere
 special=32
[par]
 type=text
 param=plain
 default=zero
[par]
 type=button
 param=press
 text=Press me
)";

class DescribedParameters : public DescribedTest {};

TEST_F(DescribedParameters, TextsAndButtonsAreButtons) {
  describe(kTexts);
  ASSERT_EQ(effect.parameters().size(), 6u);
  for (size_t i = 1; i < 6; ++i) {
    EXPECT_EQ(effect.parameters()[i].definition.param_type, PF_Param_BUTTON) << i;
    EXPECT_EQ(effect.parameters()[i].definition.ui_flags & PF_PUI_INVISIBLE, 0) << i;
  }
  EXPECT_EQ(effect.parameters()[5].text, "Press me");
}

TEST_F(DescribedParameters, TextsAndButtonsAreHiddenColoursInTheVideoEditor) {
  host.options().appId = kAppId_PremierePro;
  describe(kTexts);
  ASSERT_EQ(effect.parameters().size(), 6u);
  for (size_t i = 1; i < 6; ++i) {
    EXPECT_EQ(effect.parameters()[i].definition.param_type, PF_Param_COLOR) << i;
    EXPECT_NE(effect.parameters()[i].definition.ui_flags & PF_PUI_INVISIBLE, 0) << i;
  }
}

TEST_F(DescribedParameters, TextsStartInTheSlotOfTheirSpecialCode) {
  for (const A_long application : {kAppId_AfterEffects, kAppId_PremierePro}) {
    host.options().appId = application;
    describe(kTexts);
    Instance instance(effect);
    ASSERT_TRUE(instance.setUp().succeeded());
    std::vector<unsigned char> flat;
    ASSERT_TRUE(instance.getFlattened(flat).succeeded());
    std::vector<std::string> expected(32);
    expected[0] = "zero";
    expected[5] = "hello";
    expected[7] = "a|b";
    EXPECT_EQ(testing_support::textsOf(flat), expected);
  }
}

TEST_F(DescribedParameters, EveryKindIsTakenByBothApplications) {
  std::string text = "[par]\n type=layer\n";
  for (const char* kind : {"int", "check", "popup", "layer", "float", "color", "angle", "point", "topic_start",
                           "topic_end", "button", "vec2", "vec3", "text"}) {
    text += std::string("[par]\n type=") + kind + "\n param=" + kind + "\n min=0\n max=1\n";
    if (std::string(kind) == "popup") text += " text=a|b\n";
  }
  for (const A_long application : {kAppId_AfterEffects, kAppId_PremierePro}) {
    host.options().appId = application;
    describe(text);
    EXPECT_EQ(effect.parameters().size(), 15u);
    EXPECT_EQ(host.findings().text(), "");
  }
}

TEST_F(DescribedParameters, ADescriptionOfNothingIsTheInputAlone) {
  describe("");
  EXPECT_EQ(effect.parameters().size(), 1u);
}

}  // namespace
}  // namespace quiltor::described_tests
