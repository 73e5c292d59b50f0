// What the smart pre-render asks a host for, with check-outs of our own in its place.
#include <array>
#include <vector>

#include "hostapi/smart_render.h"
#include "tests/render/hand_case.h"
#include "tests/render/render_test.h"

namespace quiltor::render_tests {
namespace {

using standalone::HostCall;

using Rect = std::array<A_long, 4>;

Rect rectOf(const PF_LRect& r) { return {r.left, r.top, r.right, r.bottom}; }

struct CheckOut {
  PF_ParamIndex index;
  A_long id;
  PF_RenderRequest request;
  A_long time;
};

// The callback carries no context.
struct Script {
  PF_LRect inputRect{2, 3, 10, 9};
  PF_LRect patternMaximum{-4, -5, 60, 70};
  int failing = -1;  // the check-out that fails, from 0
  PF_Err failure = 42;
  std::vector<CheckOut> log;
};
Script* script = nullptr;

PF_Err checkOutLayer(PF_ProgPtr, PF_ParamIndex index, A_long id, const PF_RenderRequest* request, A_long time, A_long,
                     A_u_long, PF_CheckoutResult* result) {
  *result = {};
  script->log.push_back({index, id, *request, time});
  if (static_cast<int>(script->log.size()) - 1 == script->failing) return script->failure;
  if (index == 0) result->result_rect = script->inputRect;
  result->max_result_rect = index == 0 ? PF_LRect{0, 0, 100, 100} : script->patternMaximum;
  return PF_Err_NONE;
}

class PreRender : public RenderTest {
 protected:
  void SetUp() override {
    RenderTest::SetUp();
    script = &host_;
    input_.output_request.rect = {1, 2, 30, 40};
    input_.output_request.field = PF_Field_UPPER;
    input_.output_request.channel_mask = 5;
    input_.output_request.preserve_rgb_of_zero_alpha = 1;
    input_.bitdepth = 8;
  }
  void TearDown() override {
    script = nullptr;
    RenderTest::TearDown();
  }

  PF_Err preRender() {
    standalone::Instance instance(effect);
    EXPECT_TRUE(instance.setUp().succeeded());
    PF_PreRenderCallbacks callbacks{};
    callbacks.checkout_layer = &checkOutLayer;
    PF_PreRenderExtra extra{&input_, &output_, &callbacks};
    const PF_Err code = instance.call({.selector = PF_Cmd_SMART_PRE_RENDER, .extra = &extra}).code;
    EXPECT_NE(output_.pre_render_data, nullptr);
    if (output_.pre_render_data) {
      EXPECT_EQ(host.liveHandleCount(), 3u);  // global, sequence and this one
      output_.delete_pre_render_data_func(output_.pre_render_data);
      EXPECT_EQ(host.liveHandleCount(), 2u);
    }
    return code;
  }

  Script host_;
  PF_PreRenderInput input_{};
  PF_PreRenderOutput output_{};
};

TEST_F(PreRender, ChecksTheInputOutOnceAndThePatternTwice) {
  host.options().currentTime = 9;
  ASSERT_EQ(preRender(), PF_Err_NONE);
  ASSERT_EQ(host_.log.size(), 3u);
  EXPECT_EQ(host_.log[0].index, 0);
  EXPECT_EQ(host_.log[0].id, 0);
  EXPECT_EQ(rectOf(host_.log[0].request.rect), (Rect{1, 2, 30, 40}));
  EXPECT_EQ(host_.log[1].index, kPatternLayer);
  EXPECT_EQ(host_.log[1].id, kPatternLayer + 1000);
  const PF_LRect& empty = host_.log[1].request.rect;
  EXPECT_TRUE(empty.left >= empty.right || empty.top >= empty.bottom);
  EXPECT_EQ(host_.log[2].index, kPatternLayer);
  EXPECT_EQ(host_.log[2].id, kPatternLayer);
  EXPECT_EQ(rectOf(host_.log[2].request.rect), (Rect{-4, -5, 60, 70}));
  for (const CheckOut& checkOut : host_.log) {
    EXPECT_EQ(checkOut.time, 9);
    EXPECT_EQ(checkOut.request.field, PF_Field_UPPER);
    EXPECT_EQ(checkOut.request.channel_mask, 5);
    EXPECT_EQ(checkOut.request.preserve_rgb_of_zero_alpha, 1);
  }
}

TEST_F(PreRender, StopsAtTheFirstCheckOutThatFails) {
  for (const int failing : {0, 1, 2}) {
    host_.log.clear();
    host_.failing = failing;
    output_ = {};
    host.faults().failNever();
    EXPECT_EQ(preRender(), 42);
    EXPECT_EQ(host_.log.size(), static_cast<size_t>(failing) + 1);
    // The source's, which lies between the input and the pattern.
    EXPECT_EQ(host.faults().count(HostCall::CheckoutParam), failing == 0 ? 0u : 1u);
  }
}

TEST_F(PreRender, StopsAtTheFirstValueThatTheHostRefuses) {
  host.faults().failAt(HostCall::CheckoutParam, 0);
  EXPECT_EQ(preRender(), PF_Err_BAD_CALLBACK_PARAM);
  EXPECT_EQ(host.faults().count(HostCall::CheckoutParam), 1u);
  // The input's, which comes before all values.
  EXPECT_EQ(host_.log.size(), 1u);
}

TEST_F(PreRender, TakesTheInputsRectangleWhenTheHostProposesNone) {
  ASSERT_EQ(preRender(), PF_Err_NONE);
  EXPECT_EQ(rectOf(output_.result_rect), (Rect{2, 3, 10, 9}));
}

TEST_F(PreRender, JoinsTheInputsRectangleToAProposedOne) {
  output_.result_rect = {0, 5, 7, 20};
  ASSERT_EQ(preRender(), PF_Err_NONE);
  EXPECT_EQ(rectOf(output_.result_rect), (Rect{0, 3, 10, 20}));
}

TEST_F(PreRender, KeepsTheProposedRectangleWhenTheInputsIsEmpty) {
  host_.inputRect = {};
  output_.result_rect = {0, 5, 7, 20};
  ASSERT_EQ(preRender(), PF_Err_NONE);
  EXPECT_EQ(rectOf(output_.result_rect), (Rect{0, 5, 7, 20}));
}

}  // namespace
}  // namespace quiltor::render_tests
