// The panel of an effect with another description than the product's.
#include <gtest/gtest.h>

#include "standalone/host/instance.h"
#include "tests/support/effect_test.h"
#include "tests/support/flat_sequence.h"

namespace quiltor {
namespace {

using standalone::Effect;
using standalone::EffectModule;
using standalone::HostCall;
using standalone::Instance;
using testing_support::flatSequence;
using testing_support::liveRecordOf;

enum Index { mode = 1, of10, of11, of12, ofNone, more, of201, ofBoth, title, plain };

class Described : public testing_support::EffectTest {
 protected:
  explicit Described(A_AppID appId = kAppId_AfterEffects) : instance(setUpIn(appId)) { instance.setUp(); }
  void TearDown() override {
    host.faults().failNever();
    instance.shutDown();
    described.shutDown();
    EffectTest::TearDown();
  }

  void refresh() { ASSERT_EQ(instance.updateUi().code, 0); }
  int32_t stored(int index) const { return liveRecordOf(instance).visibility[index]; }

  EffectModule describedModule{DESCRIBED_MODULE_PATH};
  Effect described{host, describedModule};
  Instance instance;

 private:
  Effect& setUpIn(A_AppID appId) {
    host.options().appId = appId;
    described.setUp();
    return described;
  }
};

class DescribedInTheVideoEditor : public Described {
 protected:
  DescribedInTheVideoEditor() : Described(kAppId_PremierePro) {}
};

void expectOneEnabled(const Instance& instance, int enabled) {
  const SequenceData record = liveRecordOf(instance);
  for (const int index : {of10, of11, of12}) {
    EXPECT_EQ(instance.shown(index).disabled(), index != enabled) << index;
    EXPECT_FALSE(instance.shown(index).hidden()) << index;
    EXPECT_EQ(record.visibility[index], index == enabled ? -1 : 1) << index;
  }
}

TEST_F(Described, APopupOfGroup10DisablesWhatIsNotSelected) {
  for (int item = 1; item <= 3; ++item) {
    instance.setChoice(mode, item);
    ASSERT_EQ(instance.changedByUser(mode).code, 0);
    expectOneEnabled(instance, of10 + item - 1);
  }
}

TEST_F(DescribedInTheVideoEditor, APopupOfGroup10DisablesWhatIsNotSelected) {
  for (int item = 1; item <= 3; ++item) {
    instance.setChoice(mode, item);
    ASSERT_EQ(instance.changedByUser(mode).code, 0);
    expectOneEnabled(instance, of10 + item - 1);
  }
}

TEST_F(Described, WhatBelongsToNoGroupIsNeverTouched) {
  instance.setChoice(mode, 3);
  instance.setChecked(more, true);
  refresh();
  EXPECT_FALSE(instance.shown(ofNone).updated.has_value());
  EXPECT_FALSE(instance.shown(ofNone).hidden());
  EXPECT_EQ(stored(ofNone), 0);
}

// Real hosts refuse the flag of the stream; a host that takes it is told the same.
TEST_F(Described, AsksForTheDisabledFlagOfTheStreamAndMindsNoRefusal) {
  host.faults().failNever();
  host.faults().list();
  refresh();
  int asked = 0;
  for (const auto& call : host.faults().listed()) asked += call.kind == HostCall::StreamFlag;
  EXPECT_EQ(asked, 3 + 1 + 2) << "three of the first switch, one of the second, and one of both";
}

TEST_F(Described, WhatWasRegisteredInvisibleComesToLight) {
  refresh();
  EXPECT_TRUE(instance.shown(of201).hidden());
  EXPECT_EQ(stored(of201), 2);
  instance.setChecked(more, true);
  refresh();
  EXPECT_FALSE(instance.shown(of201).hidden());
  EXPECT_EQ(stored(of201), -2);
}

TEST_F(Described, WhatTwoSwitchesGovernIsHiddenByOneAndDisabledByTheOther) {
  refresh();
  EXPECT_TRUE(instance.shown(ofBoth).hidden());
  EXPECT_TRUE(instance.shown(ofBoth).disabled());
  EXPECT_EQ(stored(ofBoth), 2) << "the last switch's";
  instance.setChecked(more, true);
  refresh();
  EXPECT_FALSE(instance.shown(ofBoth).hidden());
  EXPECT_TRUE(instance.shown(ofBoth).disabled());
  instance.setChoice(mode, 2);
  refresh();
  EXPECT_FALSE(instance.shown(ofBoth).disabled());
}

TEST_F(DescribedInTheVideoEditor, OneDefinitionHidesAndDisables) {
  refresh();
  EXPECT_TRUE(instance.shown(ofBoth).hidden());
  EXPECT_TRUE(instance.shown(ofBoth).disabled());
  instance.setChecked(more, true);
  instance.setChoice(mode, 2);
  refresh();
  EXPECT_FALSE(instance.shown(ofBoth).hidden());
  EXPECT_FALSE(instance.shown(ofBoth).disabled());
}

TEST_F(Described, TextParametersAreNamedByTheirText) {
  refresh();
  EXPECT_EQ(instance.shown(title).name, "Title: first");
  EXPECT_EQ(instance.shown(plain).name, "Plain");
  instance.resetupFrom(flatSequence({{3, "second"}, {4, "unseen"}}));
  ASSERT_EQ(instance.changedByUser(mode).code, 0);
  EXPECT_EQ(instance.shown(title).name, "Title: second");
  EXPECT_EQ(instance.shown(plain).name, "Plain");
}

TEST_F(Described, ANameIsCutBetweenCharacters) {
  instance.resetupFrom(flatSequence({{3, "12345678901234567890123\xC3\xA4"}}));
  refresh();
  EXPECT_EQ(instance.shown(title).name, "Title: 12345678901234567890123");
}

TEST_F(Described, ARefusedNameIsKeptFromTheUser) {
  host.faults().failAlways(HostCall::StreamName);
  refresh();
  EXPECT_EQ(instance.shown(title).name, "Title: #TEXT");
}

TEST_F(DescribedInTheVideoEditor, TextParametersKeepTheirNames) {
  refresh();
  EXPECT_EQ(instance.shown(title).name, "Title: #TEXT");
}

TEST_F(Described, TheProductsOwnIsAnother) { EXPECT_NE(described.parameters()[mode].name, "Source"); }

}  // namespace
}  // namespace quiltor
