#include <functional>
#include <vector>

#include "description/language/description.h"
#include "hostapi/smart_render.h"
#include "render/render_driver.h"
#include "render/render_frame.h"
#include "standalone/host/services/world.h"
#include "tests/support/instance_test.h"

namespace quiltor {
namespace {

using standalone::Rgba;
using standalone::World;
using standalone::WorldFormat;

// What the driver had prepared when it called for the frame.
RenderBlock* seenBlock = nullptr;
int frames = 0;

void look(RenderBlock& block, FrameState&, RenderTransform&) {
  *seenBlock = block;
  ++frames;
}

std::function<void()> insideTheCall;

// Answers with an error, so that nothing more is asked for.
PF_Err runInside(PF_ProgPtr, PF_ParamIndex, A_long, const PF_RenderRequest*, A_long, A_long, A_u_long,
                 PF_CheckoutResult*) {
  insideTheCall();
  return PF_Err_INVALID_CALLBACK;
}

class Driver : public testing_support::InstanceTest {
 protected:
  void SetUp() override {
    ASSERT_TRUE(instance.setUp().succeeded());
    renderFrame = look;
    seenBlock = &seen;
    frames = 0;
  }
  void TearDown() override {
    renderFrame = drawFrame;
    InstanceTest::TearDown();
  }

  HostErr render(RenderBlock& block, const std::vector<const World*>& worlds, World& output) {
    std::vector<const PF_EffectWorld*> records;
    for (const World* world : worlds) records.push_back(&world->record());
    HostErr code = PF_Err_NONE;
    PF_InData* in = nullptr;
    PF_OutData* out = nullptr;
    // The driver belongs inside a call of the host, and the first thing that a pre-render asks for is such a place.
    insideTheCall = [&] { code = renderEffect(*in, *out, block, records, output.record()); };
    PF_PreRenderInput preInput{};
    PF_PreRenderOutput preOutput{};
    PF_PreRenderCallbacks callbacks{};
    callbacks.checkout_layer = &runInside;
    PF_PreRenderExtra extra{&preInput, &preOutput, &callbacks};
    instance.call(
        {.selector = PF_Cmd_SMART_PRE_RENDER, .extra = &extra, .prepare = [&](PF_InData& input, PF_OutData& result) {
           in = &input;
           out = &result;
         }});
    preOutput.delete_pre_render_data_func(preOutput.pre_render_data);
    return code;
  }

  RenderFrame drawFrame = renderFrame;
  DescriptionSettings settings;
  RenderBlock seen{settings};
};

DescriptionSettings measuring() {
  DescriptionSettings settings;
  settings.range = 1;
  return settings;
}

World withChannels(WorldFormat format, double low, double high) {
  World world(format, 5, 3);
  world.fill({0.5, 0.5, 0.5, 1});
  world.set(4, 2, {0.5, high, 0.5, 1});
  world.set(2, 1, {0.5, 0.5, low, 1});
  return world;
}

TEST_F(Driver, MeasuresTheLargestAndSmallestChannelOfAFloatInput) {
  RenderBlock block(measuring());
  const World input = withChannels(WorldFormat::ArgbFloat, -0.25, 3.5);
  World output(WorldFormat::ArgbFloat, 5, 3);
  ASSERT_EQ(render(block, {&input, &input}, output), PF_Err_NONE);
  EXPECT_EQ(seen.rangeMin, -0.25f);
  EXPECT_EQ(seen.rangeMax, 3.5f);
}

TEST_F(Driver, NeverMeasuresLessThanBlackToWhite) {
  RenderBlock block(measuring());
  const World input = withChannels(WorldFormat::ArgbFloat, 0.25, 0.75);
  World output(WorldFormat::ArgbFloat, 5, 3);
  ASSERT_EQ(render(block, {&input, &input}, output), PF_Err_NONE);
  EXPECT_EQ(seen.rangeMin, 0);
  EXPECT_EQ(seen.rangeMax, 1);
}

TEST_F(Driver, MeasuresOnlyWhenTheDescriptionAsksAndTheInputIsFloat) {
  RenderBlock unasked(settings), deep(measuring());
  const World wide = withChannels(WorldFormat::ArgbFloat, -1, 2), narrow = withChannels(WorldFormat::Argb16, 0, 1);
  World output(WorldFormat::ArgbFloat, 5, 3);
  ASSERT_EQ(render(unasked, {&wide, &wide}, output), PF_Err_NONE);
  EXPECT_EQ(seen.rangeMax, 1);
  ASSERT_EQ(render(deep, {&narrow, &wide}, output), PF_Err_NONE);
  EXPECT_EQ(seen.rangeMin, 0);
  EXPECT_EQ(seen.rangeMax, 1);
}

TEST_F(Driver, SharesTheCopyOfALayerThatRepeatsAnEarlierOneButNeverTheInputs) {
  RenderBlock block(settings);
  const World input = withChannels(WorldFormat::Argb8, 0, 1), other = withChannels(WorldFormat::Argb8, 0, 1);
  World output(WorldFormat::Argb8, 5, 3);
  ASSERT_EQ(render(block, {&input, &input, &other, &input, &other}, output), PF_Err_NONE);
  EXPECT_NE(seen.worlds[1].pixels, seen.worlds[0].pixels);
  EXPECT_NE(seen.worlds[2].pixels, seen.worlds[1].pixels);
  EXPECT_EQ(seen.worlds[3].pixels, seen.worlds[1].pixels);
  EXPECT_EQ(seen.worlds[4].pixels, seen.worlds[2].pixels);
}

TEST_F(Driver, CountsTheLayersWhenNobodyDid) {
  RenderBlock block(settings);
  const World input = withChannels(WorldFormat::Argb8, 0, 1);
  World output(WorldFormat::Argb8, 5, 3);
  ASSERT_EQ(render(block, {&input, &input}, output), PF_Err_NONE);
  EXPECT_EQ(seen.convertCount, 2);
}

TEST_F(Driver, FillsInTimeAndResolution) {
  host.options().currentTime = 75;
  host.options().timeScale = 30;
  host.options().downsampleX = {1, 2};
  host.options().downsampleY = {3, 4};
  host.options().pixelAspect = {10, 11};
  RenderBlock block(settings);
  const World input = withChannels(WorldFormat::Argb8, 0, 1);
  World output(WorldFormat::Argb8, 5, 3);
  ASSERT_EQ(render(block, {&input, &input}, output), PF_Err_NONE);
  EXPECT_EQ(seen.timeSeconds, 2.5);
  EXPECT_EQ(seen.downsampleX, 0.5f);
  EXPECT_EQ(seen.downsampleY, 0.75f);
  EXPECT_EQ(seen.pixelAspectNum, 10);
  EXPECT_EQ(seen.pixelAspectDen, 11);
}

TEST_F(Driver, RunsWithoutAnythingThatDraws) {
  renderFrame = nullptr;
  RenderBlock block(settings);
  const World input = withChannels(WorldFormat::Argb8, 0, 1);
  World output(WorldFormat::Argb8, 5, 3);
  EXPECT_EQ(render(block, {&input, &input}, output), PF_Err_NONE);
  EXPECT_EQ(frames, 0);
}

}  // namespace
}  // namespace quiltor
