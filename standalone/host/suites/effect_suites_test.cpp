#include <gtest/gtest.h>

#include "standalone/host/services/host_state.h"
#include "standalone/host/suites/suite_tables.h"

namespace quiltor::standalone {
namespace {

// A call about an instance of three parameters, the second of which was registered invisible.
class EffectSuites : public testing::Test {
 protected:
  EffectSuites() {
    panel[1].name = "First";
    panel[2].uiFlags = PF_PUI_INVISIBLE;
    panel[2].type = PF_Param_POPUP;
    call.panel = &panel;
    call.panelAccess = PanelAccess::Definitions;
    host.begin(call);
  }
  ~EffectSuites() override { host.end(call); }

  AEGP_EffectRefH reference() {
    AEGP_EffectRefH effect = nullptr;
    EXPECT_EQ(pfInterfaceSuite().AEGP_GetNewEffectForEffect(0, call.reference(), &effect), 0);
    return effect;
  }
  AEGP_StreamRefH streamOf(AEGP_EffectRefH effect, PF_ParamIndex index) {
    AEGP_StreamRefH stream = nullptr;
    EXPECT_EQ(streamSuite7().AEGP_GetNewEffectStreamByIndex(0, effect, index, &stream), 0);
    return stream;
  }
  void dispose(AEGP_StreamRefH stream, AEGP_EffectRefH effect) {
    EXPECT_EQ(streamSuite7().AEGP_DisposeStream(stream), 0);
    EXPECT_EQ(effectSuite().AEGP_DisposeEffect(effect), 0);
  }
  PF_Err update(PF_ParamIndex index, const PF_ParamDef& definition) {
    return paramUtilsSuite().PF_UpdateParamUI(call.reference(), index, &definition);
  }

  HostState host{{}};
  Panel panel{3};
  CallScope call{"PF_Cmd_UPDATE_PARAMS_UI", nullptr};
  const EnterCall enter{&call};
  const AEGP_DynamicStreamSuite2& flags = dynamicStreamSuite();
};

TEST_F(EffectSuites, HideAndShowAParameter) {
  const AEGP_EffectRefH effect = reference();
  const AEGP_StreamRefH stream = streamOf(effect, 1);
  EXPECT_EQ(flags.AEGP_SetDynamicStreamFlag(stream, AEGP_DynStreamFlag_HIDDEN, 0, 1), 0);
  EXPECT_TRUE(panel[1].hidden());
  AEGP_DynStreamFlags set = 0;
  EXPECT_EQ(flags.AEGP_GetDynamicStreamFlags(stream, &set), 0);
  EXPECT_EQ(set, AEGP_DynStreamFlags{AEGP_DynStreamFlag_HIDDEN});
  EXPECT_EQ(flags.AEGP_SetDynamicStreamFlag(stream, AEGP_DynStreamFlag_HIDDEN, 0, 0), 0);
  EXPECT_FALSE(panel[1].hidden());
  dispose(stream, effect);
  EXPECT_EQ(host.findings.text(), "");
}

TEST_F(EffectSuites, DoNotShowWhatWasRegisteredInvisibleByItsStreamAlone) {
  const AEGP_EffectRefH effect = reference();
  const AEGP_StreamRefH stream = streamOf(effect, 2);
  EXPECT_EQ(flags.AEGP_SetDynamicStreamFlag(stream, AEGP_DynStreamFlag_HIDDEN, 0, 0), 0);
  EXPECT_TRUE(panel[2].hidden());
  PF_ParamDef definition{};
  definition.param_type = PF_Param_POPUP;
  EXPECT_EQ(update(2, definition), 0);
  EXPECT_FALSE(panel[2].hidden());
  dispose(stream, effect);
}

TEST_F(EffectSuites, RefuseTheDisabledFlagWithoutAWord) {
  const AEGP_EffectRefH effect = reference();
  const AEGP_StreamRefH stream = streamOf(effect, 1);
  EXPECT_NE(flags.AEGP_SetDynamicStreamFlag(stream, AEGP_DynStreamFlag_DISABLED, 0, 1), 0);
  EXPECT_FALSE(panel[1].disabled());
  dispose(stream, effect);
  EXPECT_EQ(host.findings.text(), "");
}

TEST_F(EffectSuites, RecordFlagsThatAreNotOneOrAreToBeUndone) {
  const AEGP_EffectRefH effect = reference();
  const AEGP_StreamRefH stream = streamOf(effect, 1);
  EXPECT_NE(flags.AEGP_SetDynamicStreamFlag(stream, 2 | 16, 0, 1), 0);
  EXPECT_NE(flags.AEGP_SetDynamicStreamFlag(stream, AEGP_DynStreamFlag_HIDDEN, 1, 1), 0);
  dispose(stream, effect);
  EXPECT_EQ(host.findings.all().size(), 2u);
}

TEST_F(EffectSuites, NameAStreamInAtMost31Bytes) {
  const AEGP_EffectRefH effect = reference();
  const AEGP_StreamRefH stream = streamOf(effect, 1);
  EXPECT_EQ(flags.AEGP_SetStreamName(stream, "1234567890123456789012345678901"), 0);
  EXPECT_EQ(panel[1].name.size(), 31u);
  EXPECT_EQ(host.findings.text(), "");
  EXPECT_NE(flags.AEGP_SetStreamName(stream, "12345678901234567890123456789012"), 0);
  EXPECT_EQ(panel[1].name.size(), 31u);
  dispose(stream, effect);
}

TEST_F(EffectSuites, RecordAParameterThatIsNotThere) {
  const AEGP_EffectRefH effect = reference();
  AEGP_StreamRefH stream = nullptr;
  EXPECT_NE(streamSuite7().AEGP_GetNewEffectStreamByIndex(0, effect, 3, &stream), 0);
  EXPECT_NE(streamSuite7().AEGP_GetNewEffectStreamByIndex(0, effect, -1, &stream), 0);
  EXPECT_EQ(host.findings.all().size(), 2u);
  EXPECT_EQ(effectSuite().AEGP_DisposeEffect(effect), 0);
  EXPECT_NE(effectSuite().AEGP_DisposeEffect(effect), 0);
}

TEST_F(EffectSuites, AreNotForOtherSelectors) {
  AEGP_EffectRefH effect = nullptr;
  call.panelAccess = PanelAccess::None;
  EXPECT_NE(pfInterfaceSuite().AEGP_GetNewEffectForEffect(0, call.reference(), &effect), 0);
  EXPECT_TRUE(host.findings.has(FindingKind::WrongSelector));
}

TEST_F(EffectSuites, TakeNoDefinitionsInAnEvent) {
  call.panelAccess = PanelAccess::Streams;
  EXPECT_NE(update(1, {}), 0);
  EXPECT_TRUE(host.findings.has(FindingKind::WrongSelector));
}

TEST_F(EffectSuites, TakeNoDefinitionThatChangesTheTypeOrTheValue) {
  PF_ParamDef definition{};
  EXPECT_NE(update(2, definition), 0);
  definition.param_type = PF_Param_POPUP;
  definition.uu.change_flags = 1;
  EXPECT_NE(update(2, definition), 0);
  EXPECT_NE(update(3, definition), 0);
  EXPECT_NE(update(0, definition), 0);
  EXPECT_EQ(host.findings.all().size(), 4u);
}

}  // namespace
}  // namespace quiltor::standalone
