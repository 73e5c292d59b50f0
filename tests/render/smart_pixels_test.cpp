// What the smart render makes of a host's answers to its requests for pixels, with check-outs of our own in their
// place.
#include <map>
#include <thread>
#include <vector>

#include "hostapi/smart_render.h"
#include "tests/render/hand_case.h"
#include "tests/render/render_test.h"

namespace quiltor::render_tests {
namespace {

using standalone::World;
using standalone::WorldFormat;

// The callbacks carry no context.
struct Pixels {
  World input{WorldFormat::ArgbFloat, 3, 2};
  World pattern{WorldFormat::ArgbFloat, 3, 2};
  World output{WorldFormat::ArgbFloat, 3, 2};
  std::map<A_long, PF_Err> failures;  // by check-out
  int checkedOut = 0;
};
Pixels* pixels = nullptr;

PF_Err checkOutLayer(PF_ProgPtr, PF_ParamIndex, A_long, const PF_RenderRequest*, A_long, A_long, A_u_long,
                     PF_CheckoutResult* result) {
  *result = {};
  result->result_rect = result->max_result_rect = {0, 0, 3, 2};
  return PF_Err_NONE;
}

PF_Err checkOutPixels(PF_ProgPtr, A_long id, PF_EffectWorld** world) {
  if (const auto failure = pixels->failures.find(id); failure != pixels->failures.end()) return failure->second;
  ++pixels->checkedOut;
  *world = id == 0 ? &pixels->input.record() : &pixels->pattern.record();
  return PF_Err_NONE;
}

PF_Err checkInPixels(PF_ProgPtr, A_long) {
  --pixels->checkedOut;
  return PF_Err_NONE;
}

PF_Err checkOutOutput(PF_ProgPtr, PF_EffectWorld** world) {
  *world = &pixels->output.record();
  return PF_Err_NONE;
}

class SmartPixelsRender : public RenderTest {
 protected:
  void SetUp() override {
    RenderTest::SetUp();
    pixels = &pixels_;
    pixels_.input.fill({0.25, 0.5, 0.75, 1});
    pixels_.pattern.fill({1, 0, 0.5, 1});
  }
  void TearDown() override {
    pixels = nullptr;
    RenderTest::TearDown();
  }

  static PF_PreRenderOutput preRender(standalone::Instance& instance) {
    PF_PreRenderInput input{};
    PF_PreRenderOutput output{};
    PF_PreRenderCallbacks callbacks{};
    callbacks.checkout_layer = &checkOutLayer;
    PF_PreRenderExtra extra{&input, &output, &callbacks};
    EXPECT_EQ(instance.call({.selector = PF_Cmd_SMART_PRE_RENDER, .extra = &extra}).code, PF_Err_NONE);
    return output;
  }

  // One frame with the pattern taken from a layer, over an output that holds nothing of it yet.
  PF_Err render() {
    pixels_.output.clear();
    standalone::Instance instance(effect);
    EXPECT_TRUE(instance.setUp().succeeded());
    instance.setChoice(kSource, 1);
    const PF_PreRenderOutput preOutput = preRender(instance);
    PF_SmartRenderInput input{};
    input.pre_render_data = preOutput.pre_render_data;
    PF_SmartRenderCallbacks callbacks{&checkOutPixels, &checkInPixels, &checkOutOutput};
    PF_SmartRenderExtra extra{&input, &callbacks};
    const PF_Err code = instance.call({.selector = PF_Cmd_SMART_RENDER, .extra = &extra}).code;
    preOutput.delete_pre_render_data_func(preOutput.pre_render_data);
    EXPECT_EQ(pixels_.checkedOut, 0);
    return code;
  }

  Pixels pixels_;
};

TEST_F(SmartPixelsRender, DrawThePatternOfItsLayer) {
  ASSERT_EQ(render(), PF_Err_NONE);
  EXPECT_EQ(pixels_.output.at(1, 1).r, 1);
  EXPECT_EQ(pixels_.output.at(1, 1).g, 0);
}

TEST_F(SmartPixelsRender, LeaveNothingOfFramesThatAreNeverDrawn) {
  constexpr size_t kThreads = 4, kFrames = 5;
  std::vector<std::vector<PF_PreRenderOutput>> prepared(kThreads);
  const size_t handles = host.liveHandleCount();
  {
    standalone::Instance instance(effect);
    ASSERT_TRUE(instance.setUp().succeeded());
    std::vector<std::jthread> threads;
    for (auto& frames : prepared) {
      threads.emplace_back([&] {
        for (size_t i = 0; i < kFrames; ++i) frames.push_back(preRender(instance));
      });
    }
    threads.clear();
    EXPECT_EQ(host.liveHandleCount(), handles + 1 + kThreads * kFrames);
  }
  // The instance is gone; the host lets go of its frames on any thread and in any order.
  std::jthread([&] {
    for (auto frames = prepared.rbegin(); frames != prepared.rend(); ++frames) {
      for (const PF_PreRenderOutput& frame : *frames) frame.delete_pre_render_data_func(frame.pre_render_data);
    }
  }).join();
  EXPECT_EQ(host.liveHandleCount(), handles);
}

TEST_F(SmartPixelsRender, TakeTheInputWhenTheHostRefusesThePatternsLayer) {
  pixels_.failures = {{kPatternLayer, 42}};
  ASSERT_EQ(render(), PF_Err_NONE);
  EXPECT_EQ(pixels_.output.at(1, 1).r, 0.25);
  EXPECT_EQ(pixels_.output.at(1, 1).b, 0.75);
}

TEST_F(SmartPixelsRender, EndWithTheHostsAnswerWhenItRefusesTheInput) {
  pixels_.failures = {{0, 42}};
  EXPECT_EQ(render(), 42);
  EXPECT_EQ(pixels_.output.at(1, 1).a, 0);
}

TEST_F(SmartPixelsRender, EndWhenTheUserWantsTheFrameNoMore) {
  pixels_.failures = {{kPatternLayer, PF_Interrupt_CANCEL}};
  EXPECT_EQ(render(), PF_Interrupt_CANCEL);
  EXPECT_EQ(pixels_.output.at(1, 1).a, 0);
}

}  // namespace
}  // namespace quiltor::render_tests
