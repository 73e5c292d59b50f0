#include <gtest/gtest.h>

#include "tests/support/flat_sequence.h"
#include "tests/support/png_file.h"
#include "tests/ui/control_test.h"

namespace quiltor {
namespace {

using standalone::ControlEvent;
using standalone::DrawnImage;
using standalone::EventResult;
using standalone::HostCall;
using standalone::Rgba;
using testing_support::flatSequence;
using testing_support::InstanceTest;
using testing_support::selectionOf;
using testing_support::SuiteName;
using testing_support::testName;
using testing_support::writePng;

constexpr PF_LRect kFrame = {33, 7, 83, 57};

class Draw : public InstanceTest {
 protected:
  void SetUp() override {
    // Left half red, right half blue and half transparent.
    const std::vector<uint8_t> pixels = {255, 0, 0, 255, 0, 0, 255, 128, 255, 0, 0, 255, 0, 0, 255, 128};
    writePng(folder.path("two.png"), 2, 2, 4, pixels);
    ASSERT_EQ(instance.resetupFrom(flatSequence({{0, selectionOf(folder.path("two.png"))}})).code, 0);
  }

  EventResult draw(PF_ParamIndex index, PF_EffectArea area, PF_EventInFlags inFlags = 0) {
    return instance.send({.type = PF_Event_DRAW, .index = index, .area = area, .frame = kFrame, .inFlags = inFlags});
  }
  EventResult draw() { return draw(Param::txtsrc, PF_EA_CONTROL); }
  static bool drewNothing(const EventResult& result) {
    return result.call.code == 0 && result.drawing->images().empty() && result.call.message().empty();
  }
};

TEST_F(Draw, DrawsThePreviewInTheControlsCorner) {
  const EventResult result = draw();
  EXPECT_EQ(result.call.code, 0);
  EXPECT_FALSE(result.handled());
  ASSERT_EQ(result.drawing->images().size(), 1u);
  const DrawnImage& image = result.drawing->images()[0];
  EXPECT_EQ(image.width, 50);
  EXPECT_EQ(image.height, 50);
  EXPECT_EQ(image.layout, 6);
  EXPECT_EQ(image.origin.x, 33);
  EXPECT_EQ(image.origin.y, 7);
  EXPECT_EQ(image.opacity, 1);
}

TEST_F(Draw, ShowsTheColoursOfThePatternOverThePanel) {
  const EventResult result = draw();
  const standalone::World& pane = result.drawing->pane();
  const double grey = pane.at(0, 0).r;
  for (const auto& [x, y] : {std::pair(33, 7), std::pair(57, 56)}) {
    const Rgba red = pane.at(x, y);
    EXPECT_EQ(red.r, 1) << x;
    EXPECT_EQ(red.b, 0) << x;
  }
  for (const auto& [x, y] : {std::pair(58, 7), std::pair(82, 56)}) {
    const Rgba blue = pane.at(x, y);
    EXPECT_NEAR(blue.b, 0.5 + grey / 2, 0.01) << x;
    EXPECT_NEAR(blue.r, grey / 2, 0.01) << x;
  }
  for (const auto& [x, y] : {std::pair(32, 7), std::pair(33, 6), std::pair(83, 56), std::pair(82, 57)}) {
    EXPECT_EQ(pane.at(x, y).r, grey) << x << ", " << y;
  }
}

TEST_F(Draw, IsForThePatternControlInEitherNumbering) {
  EXPECT_FALSE(drewNothing(draw(2, PF_EA_CONTROL)));
  EXPECT_FALSE(drewNothing(draw(2, PF_EA_PARAM_TITLE)));
  EXPECT_FALSE(drewNothing(draw(3, PF_EA_CONTROL)));
  EXPECT_TRUE(drewNothing(draw(3, PF_EA_PARAM_TITLE)));
  EXPECT_TRUE(drewNothing(draw(1, PF_EA_CONTROL)));
  EXPECT_TRUE(drewNothing(draw(0, PF_EA_CONTROL)));
  EXPECT_TRUE(drewNothing(draw(4, PF_EA_CONTROL)));
}

TEST_F(Draw, LeavesThePaneAloneWhenToldNotToDraw) {
  EXPECT_TRUE(drewNothing(draw(Param::txtsrc, PF_EA_CONTROL, PF_EI_DONT_DRAW)));
  EXPECT_FALSE(drewNothing(draw(Param::txtsrc, PF_EA_CONTROL, 2)));
}

TEST_F(Draw, LeavesThePaneAloneWithoutADrawingReference) {
  host.options().offerDrawing = false;
  EXPECT_TRUE(drewNothing(draw()));
}

TEST_F(Draw, LeavesThePaneAloneWithoutAPreview) {
  standalone::Instance bare(effect);
  EXPECT_TRUE(drewNothing(bare.drawControl(Param::txtsrc)));
  instance.flatten();
  EXPECT_TRUE(drewNothing(draw()));
  instance.resetup();
}

TEST_F(Draw, ShowsThePlaceholderOfANewInstance) {
  standalone::Instance fresh(effect);
  ASSERT_EQ(fresh.setUp().code, 0);
  const EventResult result = fresh.send({.type = PF_Event_DRAW, .index = Param::txtsrc, .frame = kFrame});
  EXPECT_EQ(result.drawing->pane().at(33, 7).r, 1);
  EXPECT_EQ(result.drawing->pane().at(33, 7).g, 1);
}

TEST_F(Draw, WorksInTheVideoEditorToo) {
  host.options().appId = kAppId_PremierePro;
  EXPECT_FALSE(drewNothing(draw()));
}

class DrawWithoutASuite : public Draw, public testing::WithParamInterface<SuiteName> {};

TEST_P(DrawWithoutASuite, Is516AndTellsTheUser) {
  host.options().suitesNotOffered = {{GetParam().name, GetParam().version}};
  const EventResult result = draw();
  host.options().suitesNotOffered.clear();
  EXPECT_EQ(result.call.code, 516);
  EXPECT_EQ(result.call.message(), "Not able to acquire AEFX Suite.");
  EXPECT_EQ(result.call.out.out_flags, PF_OutFlag_DISPLAY_ERROR_MESSAGE);
}

INSTANTIATE_TEST_SUITE_P(Each, DrawWithoutASuite,
                         testing::Values(SuiteName{"PF Handle Suite", 2}, SuiteName{"PF Effect Custom UI Suite", 1},
                                         SuiteName{"DRAWBOT Draw Suite", 1}, SuiteName{"DRAWBOT Supplier Suite", 1},
                                         SuiteName{"DRAWBOT Surface Suite", 1}, SuiteName{"DRAWBOT Path Suite", 1}),
                         testName);

TEST_F(Draw, TellsTheUserWhenASuiteCannotBeReleased) {
  host.faults().failAlways(HostCall::ReleaseSuite);
  const EventResult result = draw();
  EXPECT_EQ(result.call.code, 0);
  EXPECT_EQ(result.call.message(), "Not able to release AEFX Suite.");
  EXPECT_EQ(result.call.out.out_flags, PF_OutFlag_DISPLAY_ERROR_MESSAGE);
}

class DrawRefusal : public Draw, public testing::WithParamInterface<HostCall> {};

TEST_P(DrawRefusal, IsPassedOn) {
  host.faults().answerWith(1234);
  host.faults().failAlways(GetParam());
  EXPECT_EQ(draw().call.code, 1234);
  host.faults().answerWith(0);
}

INSTANTIATE_TEST_SUITE_P(EachCall, DrawRefusal,
                         testing::Values(HostCall::DrawingReference, HostCall::Drawbot, HostCall::NewImage,
                                         HostCall::DrawImage, HostCall::ReleaseObject));

TEST_F(Draw, PassesTheFirstOfTwoRefusalsOn) {
  host.faults().failAt(HostCall::Drawbot, 1);
  EXPECT_EQ(draw().call.code, kSPBadParameterError) << "of the surface";
}

}  // namespace
}  // namespace quiltor
