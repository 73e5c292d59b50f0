// Every call of a frame to the host is made to fail once, one after the other. Whatever it answers, nothing is left
// behind and the next frame is right.
#include <set>
#include <string>
#include <vector>

#include "tests/render/hand_case.h"
#include "tests/render/render_test.h"

namespace quiltor::render_tests {
namespace {

using standalone::HostCall;
using standalone::Instance;
using standalone::RenderResult;

const std::set<PF_Err> kDocumented{PF_Err_OUT_OF_MEMORY, PF_Err_INTERNAL_STRUCT_DAMAGED, PF_Err_BAD_CALLBACK_PARAM,
                                   PF_Interrupt_CANCEL, kSPSuiteNotFoundError};

class FaultsRender : public RenderTest {
 protected:
  void SetUp() override {
    RenderTest::SetUp();
    host.options().iterateThreads = 1;
  }

  // A frame that is the same whichever of its layers a failure takes away, and with a failed layer transform.
  static RenderCase layerFrame(bool smart) {
    World layer(WorldFormat::ArgbFloat, 5, 4);
    for (int y = 0; y < 4; ++y)
      for (int x = 0; x < 5; ++x) layer.set(x, y, {x / 5.0, y / 4.0, 0.5, 1});
    RenderCase frame = overlaid(layer, layer);
    frame.smart = smart;
    frame.blendMode = kAverage;
    frame.lock = true;
    frame.blur = 2;
    return frame;
  }
  static RenderCase fileFrame(bool smart) {
    RenderCase frame = overlaidFile(filled(5, 4, {0.1, 0.5, 0.9, 1}, WorldFormat::Argb8), PatternSource::PngRgba,
                                    {2, 1, 4, {10, 200, 30, 255, 40, 50, 250, 128}});
    frame.smart = smart;
    frame.lock = true;
    return frame;
  }

  void sweep(RenderCase frame) {
    setSurroundings(frame);
    Instance instance(effect);
    if (isFile(frame.source)) {
      pick(instance, writePattern(frame));
    } else {
      ASSERT_TRUE(instance.setUp().succeeded());
    }
    setParameters(instance, frame);
    const RenderResult whole = renderOf(instance, frame);
    ASSERT_TRUE(whole.output.has_value());
    const auto picture = whole.output->packed();
    const auto untouched = World(frame.input.format(), frame.input.width(), frame.input.height()).packed();
    const size_t handles = host.liveHandleCount();

    size_t calls = 0;
    for (int kind = 0; kind < static_cast<int>(HostCall::Count_); ++kind) {
      for (size_t k = 0;; ++k) {
        SCOPED_TRACE("call " + std::to_string(k) + " of kind " + std::to_string(kind) + " fails");
        host.faults().failAt(static_cast<HostCall>(kind), k);
        const RenderResult result = renderOf(instance, frame);
        const bool struck = host.faults().struck();
        host.faults().failNever();
        ASSERT_EQ(host.findings().text(), "");
        ASSERT_EQ(host.suiteBalance(), 0);
        ASSERT_EQ(host.liveHandleCount(), handles);
        if (!struck) break;
        ++calls;
        if (result.code != PF_Err_NONE) {
          EXPECT_TRUE(kDocumented.contains(result.code)) << result.code;
        } else if (result.output) {
          // A frame whose data cannot be locked is left as it was.
          const auto pixels = result.output->packed();
          const bool unlocked = static_cast<HostCall>(kind) == HostCall::LockHandle && pixels == untouched;
          EXPECT_TRUE(unlocked || pixels == picture);
        }
        const RenderResult again = renderOf(instance, frame);
        ASSERT_TRUE(again.output.has_value());
        ASSERT_EQ(again.output->packed(), picture);
      }
    }
    EXPECT_GT(calls, 30u) << "a frame takes more calls than these";
  }
};

TEST_F(FaultsRender, OfAClassicFrameFromALayer) { sweep(layerFrame(false)); }
TEST_F(FaultsRender, OfASmartFrameFromALayer) { sweep(layerFrame(true)); }
TEST_F(FaultsRender, OfAClassicFrameFromAFile) { sweep(fileFrame(false)); }
TEST_F(FaultsRender, OfASmartFrameFromAFile) { sweep(fileFrame(true)); }

}  // namespace
}  // namespace quiltor::render_tests
