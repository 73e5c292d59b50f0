#include <gtest/gtest.h>

#include <map>
#include <string>

#include "standalone/host/testing/sample_effect.h"

namespace quiltor::standalone {
namespace {

const HostOptions kWithAMask{.masks = {{.id = 4, .vertices = {{1, 1}, {6, 2}, {3, 5}}, .featherX = 2}}};

// The whole life of an effect, every selector that it answers once at least.
void live(Host& host) {
  const World picture = samplePicture(WorldFormat::Argb8, 9, 5);
  Effect effect(host, sampleModule());
  effect.setUp();
  effect.about();
  {
    Instance instance(effect);
    instance.setUp();
    std::vector<unsigned char> flat;
    instance.getFlattened(flat);
    instance.flatten();
    instance.resetup();
    instance.updateUi();
    instance.drawControl(1);
    instance.render({.input = &picture});
    instance.renderSmart({.input = &picture});
  }
  effect.shutDown();
}

std::string expectedSelector(FindingKind kind) {
  static const std::map<FindingKind, std::string> kElsewhere = {
      {FindingKind::HandleLeaked, "shut-down"},
      {FindingKind::ParamCheckoutIntoParams, "PF_Cmd_RENDER"},
      {FindingKind::ParamCountMismatch, "PF_Cmd_PARAMS_SETUP"},
      {FindingKind::ParamIdDuplicate, "PF_Cmd_PARAMS_SETUP"},
      {FindingKind::ParamNameNotTerminated, "PF_Cmd_PARAMS_SETUP"},
      {FindingKind::ParamTypeUnknown, "PF_Cmd_PARAMS_SETUP"},
      {FindingKind::PopupDefaultOutOfRange, "PF_Cmd_PARAMS_SETUP"},
      {FindingKind::PopupItemCountWrong, "PF_Cmd_PARAMS_SETUP"},
      {FindingKind::AddParamIndexNotAppend, "PF_Cmd_PARAMS_SETUP"},
      {FindingKind::InputWorldWritten, "PF_Cmd_RENDER"},
      {FindingKind::CheckoutIdDuplicate, "PF_Cmd_SMART_PRE_RENDER"},
      {FindingKind::CheckoutIdNegative, "PF_Cmd_SMART_PRE_RENDER"},
      {FindingKind::CheckoutIdUnknown, "PF_Cmd_SMART_RENDER"},
      {FindingKind::OutputBeforeInput, "PF_Cmd_SMART_RENDER"},
      {FindingKind::ResultRectOutsideRequest, "PF_Cmd_SMART_PRE_RENDER"},
      {FindingKind::ResultRectOutsideMaximum, "PF_Cmd_SMART_PRE_RENDER"},
      {FindingKind::EffectNotDisposed, "PF_Cmd_UPDATE_PARAMS_UI"},
      {FindingKind::EffectDisposedBeforeStream, "PF_Cmd_UPDATE_PARAMS_UI"},
      {FindingKind::DrawbotObjectNotReleased, "PF_Cmd_EVENT"},
      {FindingKind::FlatDataIsLive, "PF_Cmd_GET_FLATTENED_SEQUENCE_DATA"},
      {FindingKind::FlatHandleNotDisposed, "PF_Cmd_SEQUENCE_RESETUP"},
  };
  const auto found = kElsewhere.find(kind);
  return found == kElsewhere.end() ? "PF_Cmd_ABOUT" : found->second;
}

TEST(HonestEffect, HasNoFindingsInItsWholeLife) {
  setMisdeed("");
  Host host(kWithAMask);
  live(host);
  EXPECT_EQ(host.findings().text(), "");
  EXPECT_GT(host.faults().count(HostCall::DrawPath), 0u);
  EXPECT_GT(host.faults().count(HostCall::CheckinPath), 0u);
}

class EveryMisdeed : public testing::TestWithParam<FindingKind> {};

TEST_P(EveryMisdeed, IsRecordedUnderItsNameAndSelector) {
  setMisdeed(std::string(nameOf(GetParam())));
  Host host(kWithAMask);
  live(host);
  setMisdeed("");
  ASSERT_TRUE(host.findings().has(GetParam())) << host.findings().text();
  EXPECT_EQ(host.findings().all().front().kind, GetParam()) << host.findings().text();
  EXPECT_EQ(host.findings().all().front().selector, expectedSelector(GetParam())) << host.findings().text();
}

constexpr FindingKind kAllKinds[] = {
#define QUILTOR_KIND(name) FindingKind::name,
    QUILTOR_FINDING_KINDS(QUILTOR_KIND)
#undef QUILTOR_KIND
};

INSTANTIATE_TEST_SUITE_P(Findings, EveryMisdeed, testing::ValuesIn(kAllKinds),
                         [](const auto& test) { return std::string(nameOf(test.param)); });

TEST(Findings, AreToldInOneLineWithSelectorAndKind) {
  setMisdeed("SuiteNotReleased");
  Host host;
  live(host);
  setMisdeed("");
  EXPECT_EQ(host.findings().text(),
            "PF_Cmd_ABOUT: SuiteNotReleased: \"PF Handle Suite\" 2 was acquired 1 times more than it was released\n");
}

}  // namespace
}  // namespace quiltor::standalone
