#include "description/group_switches.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>

#include "description/host_definition.h"
#include "description/language/built_in_description.h"
#include "description/language/param_index.h"
#include "description/language/parse_description.h"
#include "hostapi/effect.h"

namespace quiltor {
namespace {

// The values of a description's parameters, as registered.
class Values {
 public:
  explicit Values(const Description& description) : description_(description), definitions_(description.params.size()) {
    for (int32_t at = 1; at < description.paramCount; ++at) {
      definitions_[static_cast<size_t>(at)] =
          hostDefinition(description.params[static_cast<size_t>(at)], "", kAppId_AfterEffects);
    }
    for (PF_ParamDef& definition : definitions_) pointers_.push_back(&definition);
  }
  PF_ParamDef& operator[](size_t index) { return definitions_[index]; }
  std::vector<GovernedParam> governed() {
    return governedParams(description_, pointers_.data(), description_.paramCount);
  }

  // The stored states, 0 for what no switch governs.
  std::vector<int32_t> states() {
    std::vector<int32_t> all(static_cast<size_t>(description_.paramCount), 0);
    for (const GovernedParam& param : governed()) all[static_cast<size_t>(param.index)] = param.state;
    return all;
  }

 private:
  const Description& description_;
  std::vector<PF_ParamDef> definitions_;
  std::vector<PF_ParamDef*> pointers_;
};

// A switch at index 1 and its members from index 2 on.
Description described(const std::string& theSwitch, const std::vector<std::string>& members) {
  std::string text = "[par]\n[par]\nparam=switch\n" + theSwitch + "\n";
  for (const std::string& member : members) text += "[par]\ntype=float\nparam=p\n" + member + "\n";
  return parseDescription(text);
}

constexpr char kThreeItems[] = "type=select\ntext=A|B|C\nGroupSwitch=10";

TEST(GroupSwitches, SourceShowsTheLayerOrTheControl) {
  const Description description = parseDescription(builtInDescription());
  Values values(description);
  values[Param::source].u.pd.value = 1;
  EXPECT_EQ(values.states()[Param::patsrc], -2);
  EXPECT_EQ(values.states()[Param::txtsrc], 2);
  values[Param::source].u.pd.value = 2;
  EXPECT_EQ(values.states()[Param::patsrc], 2);
  EXPECT_EQ(values.states()[Param::txtsrc], -2);
  EXPECT_EQ(values.governed().size(), 2u) << "the others belong to no group";
}

TEST(GroupSwitches, UpTo100DisableWhatIsNotSelected) {
  const Description description = described(kThreeItems, {"Group=10", "Group=11", "Group=12", "Group=13", ""});
  Values values(description);
  for (int item = 1; item <= 3; ++item) {
    values[1].u.pd.value = item;
    std::vector<int32_t> expected = {0, 0, 1, 1, 1, 0, 0};
    expected[static_cast<size_t>(item) + 1] = -1;
    EXPECT_EQ(values.states(), expected) << "item " << item;
  }
  for (const GovernedParam& param : values.governed()) EXPECT_EQ(param.hidden, std::nullopt);
}

TEST(GroupSwitches, Of100DisableAndOf101Hide) {
  for (const int group : {100, 101}) {
    const std::string number = std::to_string(group);
    const Description description = described("type=bool\nGroupSwitch=" + number, {"Group=" + number});
    Values values(description);
    values[1].u.bd.value = 1;
    EXPECT_EQ(values.states()[2], group == 100 ? 1 : 2);
  }
}

TEST(GroupSwitches, OnIsAnyGroupOfAMemberThatIsSelected) {
  const Description description = described(kThreeItems, {"Group=10\nGroup1=12"});
  Values values(description);
  for (const auto& [item, state] : {std::pair(1, -1), std::pair(2, 1), std::pair(3, -1)}) {
    values[1].u.pd.value = item;
    EXPECT_EQ(values.states()[2], state) << "item " << item;
  }
}

TEST(GroupSwitches, AMembersGroupsEndAtTheFirstEmptySlot) {
  const Description description = described(kThreeItems, {"Group1=10", "Group=50\nGroup2=10"});
  Values values(description);
  EXPECT_THAT(values.governed(), testing::IsEmpty());
}

TEST(GroupSwitches, OfACheckBoxGovernTwoGroups) {
  const Description description = described("type=bool\nGroupSwitch=20", {"Group=20", "Group=21", "Group=22"});
  Values values(description);
  EXPECT_EQ(values.states(), (std::vector<int32_t>{0, 0, -1, 1, 0}));
  values[1].u.bd.value = 1;
  EXPECT_EQ(values.states(), (std::vector<int32_t>{0, 0, 1, -1, 0}));
}

TEST(GroupSwitches, OfASliderSelectByItsWholePart) {
  const Description description = described("type=float\nmax=3\nGroupSwitch=20", {"Group=20", "Group=22", "Group=23"});
  Values values(description);
  values[1].u.fs_d.value = 2.9;
  EXPECT_EQ(values.states(), (std::vector<int32_t>{0, 0, 1, -1, 1}));
  for (const double value : {std::nan(""), 0.5, -0.5}) {
    values[1].u.fs_d.value = value;
    EXPECT_EQ(values.states()[2], -1) << value;
  }
  for (const double value : {std::numeric_limits<double>::infinity(), -1e300}) {
    values[1].u.fs_d.value = value;
    EXPECT_EQ(values.states(), (std::vector<int32_t>{0, 0, 1, 1, 1})) << value;
  }
}

TEST(GroupSwitches, SurviveTheLargestNumbers) {
  const Description description =
      described("type=float\nmax=1e30\nGroupSwitch=2147483647", {"Group=2147483647", "Group=1"});
  Values values(description);
  EXPECT_EQ(values.states(), (std::vector<int32_t>{0, 0, -2, 0}));
}

TEST(GroupSwitches, TheLastOneCountsOfTwoThatGovernInOneWay) {
  const Description description = parseDescription(
      "[par]\n[par]\ntype=bool\nGroupSwitch=10\n[par]\ntype=bool\nGroupSwitch=110\n[par]\ntype=bool\nGroupSwitch=20\n"
      "[par]\ntype=float\nGroup=10\nGroup1=110\nGroup2=20\n");
  Values values(description);
  values[2].u.bd.value = 1;
  values[3].u.bd.value = 1;
  const std::vector<GovernedParam> governed = values.governed();
  ASSERT_EQ(governed.size(), 1u);
  EXPECT_EQ(governed[0].index, 4);
  EXPECT_EQ(governed[0].state, 1);
  EXPECT_EQ(governed[0].disabled, true);
  EXPECT_EQ(governed[0].hidden, true);
}

TEST(GroupSwitches, CountValuesThatTheHostDoesNotGiveAsZero) {
  const Description description = described("type=bool\nGroupSwitch=20", {"Group=20"});
  PF_ParamDef* nothing[3] = {};
  EXPECT_EQ(governedParams(description, nothing, 3).at(0).state, -1);
  EXPECT_EQ(governedParams(description, nothing, 0).at(0).state, -1);
}

}  // namespace
}  // namespace quiltor
