// The panel of an effect with switches and texts that the built-in description has none of.
#include <gtest/gtest.h>

#include <memory>

#include "standalone/host/instance.h"
#include "tests/described/described_test.h"
#include "tests/support/flat_sequence.h"

namespace quiltor::described_tests {
namespace {

using standalone::HostCall;
using standalone::Instance;
using testing_support::flatSequence;
using testing_support::liveRecordOf;

constexpr PF_ChangeFlags kValueChanged = 1;

enum Index { mode = 1, of10, of11, of12, ofNone, more, of201, ofBoth, title, plain };

constexpr char kSwitches[] = R"([par]
 type=layer
[par]
 type=select
 param=mode
 text=One|Two|Three
 GroupSwitch=10
[par]
 type=float
 param=of10
 max=1
 Group=10
[par]
 type=float
 param=of11
 max=1
 Group=11
[par]
 type=float
 param=of12
 max=1
 Group=12
 visibility=1
[par]
 type=float
 param=ofnone
 max=1
[par]
 type=bool
 param=more
 GroupSwitch=200
[par]
 type=float
 param=of201
 max=1
 Group=201
 visibility=2
[par]
 type=float
 param=ofboth
 max=1
 Group=11
 Group1=201
[par]
 type=text
 param=title
 display=Title: #TEXT
 text=first
 special=3
[par]
 type=text
 param=plain
 display=Plain
 text=second
 special=4
)";

class DescribedParamsUi : public DescribedTest {
 protected:
  explicit DescribedParamsUi(A_AppID appId = kAppId_AfterEffects) { host.options().appId = appId; }
  void SetUp() override {
    describe(kSwitches);
    made = std::make_unique<Instance>(effect);
    ASSERT_EQ(instance().setUp().code, 0);
  }
  void TearDown() override {
    host.faults().failNever();
    made->shutDown();
    DescribedTest::TearDown();
  }

  Instance& instance() { return *made; }
  void refresh() { ASSERT_EQ(instance().updateUi().code, 0); }
  int32_t stored(int index) const { return liveRecordOf(*made).visibility[index]; }

  std::unique_ptr<Instance> made;
};

class VideoEditorDescribedParamsUi : public DescribedParamsUi {
 protected:
  VideoEditorDescribedParamsUi() : DescribedParamsUi(kAppId_PremierePro) {}
};

void expectOneEnabled(const Instance& instance, int enabled) {
  const SequenceData record = liveRecordOf(instance);
  for (const int index : {of10, of11, of12}) {
    EXPECT_EQ(instance.shown(index).disabled(), index != enabled) << index;
    EXPECT_FALSE(instance.shown(index).hidden()) << index;
    EXPECT_EQ(record.visibility[index], index == enabled ? -1 : 1) << index;
  }
}

TEST_F(DescribedParamsUi, APopupOfGroup10DisablesWhatIsNotSelected) {
  for (int item = 1; item <= 3; ++item) {
    instance().setChoice(mode, item);
    ASSERT_EQ(instance().changedByUser(mode).code, 0);
    expectOneEnabled(instance(), of10 + item - 1);
  }
}

TEST_F(VideoEditorDescribedParamsUi, APopupOfGroup10DisablesWhatIsNotSelected) {
  for (int item = 1; item <= 3; ++item) {
    instance().setChoice(mode, item);
    ASSERT_EQ(instance().changedByUser(mode).code, 0);
    expectOneEnabled(instance(), of10 + item - 1);
  }
}

// Hosts mark the values that the user has just changed; a switch may itself belong to another one's group.
TEST_F(DescribedParamsUi, TellsTheHostOfNoChangeOfAValue) {
  for (const int index : {of10, of11, of12}) {
    instance().adjust(index,
                      [](PF_ParamDef& definition, A_long, A_u_long) { definition.uu.change_flags = kValueChanged; });
  }
  instance().setChoice(mode, 2);
  ASSERT_EQ(instance().changedByUser(mode).code, 0);
  expectOneEnabled(instance(), of11);
  for (const int index : {of10, of11, of12}) {
    ASSERT_TRUE(instance().shown(index).updated.has_value()) << index;
    EXPECT_EQ(instance().shown(index).updated->uu.change_flags, 0) << index;
  }
}

TEST_F(DescribedParamsUi, WhatBelongsToNoGroupIsNeverTouched) {
  instance().setChoice(mode, 3);
  instance().setChecked(more, true);
  refresh();
  EXPECT_FALSE(instance().shown(ofNone).updated.has_value());
  EXPECT_FALSE(instance().shown(ofNone).hidden());
  EXPECT_EQ(stored(ofNone), 0);
}

// Real hosts refuse the flag of the stream; a host that takes it is told the same.
TEST_F(DescribedParamsUi, AsksForTheDisabledFlagOfTheStreamAndMindsNoRefusal) {
  host.faults().failNever();
  host.faults().list();
  refresh();
  int asked = 0;
  for (const auto& call : host.faults().listed()) asked += call.kind == HostCall::StreamFlag;
  EXPECT_EQ(asked, 3 + 1 + 2) << "three of the first switch, one of the second, and one of both";
}

TEST_F(DescribedParamsUi, WhatWasRegisteredInvisibleComesToLight) {
  refresh();
  EXPECT_TRUE(instance().shown(of201).hidden());
  EXPECT_EQ(stored(of201), 2);
  instance().setChecked(more, true);
  refresh();
  EXPECT_FALSE(instance().shown(of201).hidden());
  EXPECT_EQ(stored(of201), -2);
}

TEST_F(DescribedParamsUi, WhatTwoSwitchesGovernIsHiddenByOneAndDisabledByTheOther) {
  refresh();
  EXPECT_TRUE(instance().shown(ofBoth).hidden());
  EXPECT_TRUE(instance().shown(ofBoth).disabled());
  EXPECT_EQ(stored(ofBoth), 2) << "the last switch's";
  instance().setChecked(more, true);
  refresh();
  EXPECT_FALSE(instance().shown(ofBoth).hidden());
  EXPECT_TRUE(instance().shown(ofBoth).disabled());
  instance().setChoice(mode, 2);
  refresh();
  EXPECT_FALSE(instance().shown(ofBoth).disabled());
}

TEST_F(VideoEditorDescribedParamsUi, OneDefinitionHidesAndDisables) {
  refresh();
  EXPECT_TRUE(instance().shown(ofBoth).hidden());
  EXPECT_TRUE(instance().shown(ofBoth).disabled());
  instance().setChecked(more, true);
  instance().setChoice(mode, 2);
  refresh();
  EXPECT_FALSE(instance().shown(ofBoth).hidden());
  EXPECT_FALSE(instance().shown(ofBoth).disabled());
}

TEST_F(DescribedParamsUi, TextParametersAreNamedByTheirText) {
  refresh();
  EXPECT_EQ(instance().shown(title).name, "Title: first");
  EXPECT_EQ(instance().shown(plain).name, "Plain");
  instance().resetupFrom(flatSequence({{3, "second"}, {4, "unseen"}}));
  ASSERT_EQ(instance().changedByUser(mode).code, 0);
  EXPECT_EQ(instance().shown(title).name, "Title: second");
  EXPECT_EQ(instance().shown(plain).name, "Plain");
}

TEST_F(DescribedParamsUi, ANameIsCutBetweenCharacters) {
  instance().resetupFrom(flatSequence({{3, "12345678901234567890123\xC3\xA4"}}));
  refresh();
  EXPECT_EQ(instance().shown(title).name, "Title: 12345678901234567890123");
}

TEST_F(DescribedParamsUi, ARefusedNameIsKeptFromTheUser) {
  host.faults().failAlways(HostCall::StreamName);
  refresh();
  EXPECT_EQ(instance().shown(title).name, "Title: #TEXT");
}

TEST_F(VideoEditorDescribedParamsUi, TextParametersKeepTheirNames) {
  refresh();
  EXPECT_EQ(instance().shown(title).name, "Title: #TEXT");
}

}  // namespace
}  // namespace quiltor::described_tests
