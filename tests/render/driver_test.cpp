// The frame as a whole: sizes, rows, depths, missing services, interruptions.
#include <string>
#include <vector>

#include "tests/render/hand_case.h"
#include "tests/render/render_test.h"

namespace quiltor::render_tests {
namespace {

using standalone::Instance;
using standalone::RenderResult;

class DriverRender : public RenderTest {
 protected:
  // A pattern whose rows count up, over black.
  static RenderCase rows(int width, int height, WorldFormat format = WorldFormat::ArgbFloat) {
    World pattern(format, width, height);
    for (int y = 0; y < height; ++y)
      for (int x = 0; x < width; ++x) pattern.set(x, y, {(y + 1) / 256.0, (x + 1) / 256.0, 0.5, 1});
    return overlaid(filled(width, height, {0, 0, 0, 1}, format), pattern);
  }
};

TEST_F(DriverRender, DrawsEveryRowHoweverFewThereAre) {
  for (const int height : {1, 2, 3, 31, 32, 33, 63, 64, 65, 97}) {
    const World picture = drawn(rows(2, height));
    ASSERT_EQ(picture.height(), height);
    for (int y = 0; y < height; ++y) {
      expectPixel(picture, 0, y, {(y + 1) / 256.0, 1 / 256.0, 0.5, 1}, std::to_string(height) + " rows");
      expectPixel(picture, 1, y, {(y + 1) / 256.0, 2 / 256.0, 0.5, 1}, std::to_string(height) + " rows");
    }
  }
}

TEST_F(DriverRender, BlursEveryRowHoweverFewThereAre) {
  for (const int height : {1, 2, 31, 33}) {
    RenderCase frame = overlaid(filled(3, height, grey(0)), filled(3, height, grey(0.75)));
    frame.blur = 40;
    expectAll(drawn(frame), grey(0.75), std::to_string(height) + " rows");
  }
}

TEST_F(DriverRender, TakesTheInputsOwnLayerAsThePattern) {
  World layer = rowOf({grey(0.5), grey(0.25), {0.1, 0.2, 0.4, 1}});
  for (const bool smart : {false, true}) {
    RenderCase frame = overlaid(layer, layer);
    frame.smart = smart;
    frame.blendMode = kMultiply;
    const World picture = drawn(frame);
    expectPixel(picture, 0, 0, grey(0.25));
    expectPixel(picture, 1, 0, grey(0.0625));
    expectPixel(picture, 2, 0, {0.01, 0.04, 0.16, 1});
  }
}

TEST_F(DriverRender, ConvertsRowByRowInAHostWithoutIterate) {
  for (const WorldFormat format : {WorldFormat::Argb8, WorldFormat::Argb16, WorldFormat::ArgbFloat}) {
    host.options().offerIterateGeneric = true;
    const World threaded = drawn(rows(20, 45, format));
    host.options().offerIterateGeneric = false;
    EXPECT_EQ(drawn(rows(20, 45, format)).packed(), threaded.packed());
  }
}

TEST_F(DriverRender, FollowsRowsHoweverTheyLieInMemory) {
  for (const WorldFormat format : {WorldFormat::Argb8, WorldFormat::Argb16, WorldFormat::ArgbFloat}) {
    host.options().inputRows = host.options().outputRows = {};
    const World compact = drawn(rows(5, 7, format));
    for (const int padding : {4, 20, 1000}) {
      for (const bool bottomUp : {false, true}) {
        host.options().inputRows = {padding, bottomUp};
        host.options().outputRows = {2 * padding, !bottomUp};
        EXPECT_EQ(drawn(rows(5, 7, format)).packed(), compact.packed()) << padding << " bytes, " << bottomUp;
      }
    }
  }
}

TEST_F(DriverRender, RoundsToTheDepthOfTheOutput) {
  const auto product = [&](WorldFormat format) {
    RenderCase frame = overlaid(filled(1, 1, grey(0.2), format), filled(1, 1, grey(0.6), format));
    frame.blendMode = kMultiply;
    frame.smart = format == WorldFormat::ArgbFloat;
    return drawn(frame).at(0, 0).r;
  };
  EXPECT_EQ(product(WorldFormat::Argb8), 31 / 255.0);       // 30.6
  EXPECT_EQ(product(WorldFormat::Argb16), 3932 / 32768.0);  // 3932.4
  EXPECT_NEAR(product(WorldFormat::ArgbFloat), 0.12, 1e-7);
}

TEST_F(DriverRender, ReadsAByteOf255AsExactlyOne) {
  // Glow makes 1 of a pattern of exactly 1, and 0 of anything else over black.
  RenderCase frame = overlaid(filled(1, 1, grey(0), WorldFormat::Argb8), filled(1, 1, grey(1), WorldFormat::Argb8));
  frame.blendMode = kGlow;
  expectAll(drawn(frame), grey(1));
  expectAll(drawn([&] {
              RenderCase file = overlaidFile(frame.input, PatternSource::PngRgb, {1, 1, 3, {255, 255, 255}});
              file.blendMode = kGlow;
              return file;
            }()),
            grey(1));
}

TEST_F(DriverRender, DrawsTheCommonPartWhenInputAndOutputDifferInSize) {
  struct Size {
    int width, height;
  };
  for (const Size size : {Size{9, 3}, Size{4, 7}, Size{8, 8}, Size{3, 2}, Size{6, 40}}) {
    for (const double blur : {0.0, 3.0}) {
      RenderCase frame = rows(6, 5);
      frame.patternLayer = filled(6, 5, {0.25, 0.5, 0.75, 1});
      frame.blur = blur;
      Instance instance(effect);
      ASSERT_TRUE(instance.setUp().succeeded());
      setParameters(instance, frame);
      Instance::ParamArray params = instance.params(&frame.input);
      World output(WorldFormat::ArgbFloat, size.width, size.height, {.paddingBytes = 12});
      const auto result =
          instance.call({.selector = PF_Cmd_RENDER, .params = params.pointers(), .output = &output.record()});
      ASSERT_EQ(result.code, PF_Err_NONE);
      for (int y = 0; y < size.height; ++y)
        for (int x = 0; x < size.width; ++x)
          expectPixel(output, x, y, x < 6 && y < 5 ? Rgba{0.25, 0.5, 0.75, 1} : Rgba{0, 0, 0, 0});
      EXPECT_EQ(output.damage().value_or(""), "");
    }
  }
}

TEST_F(DriverRender, DrawsNothingForAnInstanceWithoutData) {
  for (const bool global : {false, true}) {
    RenderCase frame = rows(4, 4);
    Instance instance(effect);
    ASSERT_TRUE(instance.setUp().succeeded());
    setParameters(instance, frame);
    Instance::ParamArray params = instance.params(&frame.input);
    World output(WorldFormat::ArgbFloat, 4, 4);
    const World before = output;
    const auto result = instance.call(
        {.selector = PF_Cmd_RENDER,
         .params = params.pointers(),
         .output = &output.record(),
         .prepare = [global](PF_InData& in, PF_OutData&) { (global ? in.global_data : in.sequence_data) = nullptr; }});
    EXPECT_EQ(result.code, PF_Err_NONE);
    EXPECT_EQ(output.packed(), before.packed());
  }
}

TEST_F(DriverRender, EndsWithTheHostsAnswerWhereverItIsInterrupted) {
  host.options().iterateThreads = 1;  // so that every frame asks equally often
  for (const bool smart : {false, true}) {
    for (const bool serial : {false, true}) {
      host.options().offerIterateGeneric = !serial;
      RenderCase frame = rows(3, 9);
      frame.smart = smart;
      host.options().onAbort = nullptr;
      const World whole = drawn(frame);
      int interrupted = 0;
      for (int k = 0;; ++k) {
        bool asked = false;
        const bool persistent = k % 2 == 1;
        host.options().onAbort = [&](int call) -> PF_Err {
          asked = asked || call == k;
          // Once, or from then on as when a user does not wait.
          return call == k || (persistent && call > k) ? PF_Interrupt_CANCEL : PF_Err_NONE;
        };
        const RenderResult result = draw(frame);
        host.options().onAbort = nullptr;
        if (!asked) {
          EXPECT_EQ(result.code, PF_Err_NONE);
          break;
        }
        ++interrupted;
        EXPECT_EQ(result.code, PF_Interrupt_CANCEL) << "at the host's abort call " << k;
        EXPECT_EQ(drawn(frame).packed(), whole.packed()) << "after abort call " << k;
      }
      // The handler asks once and the driver twice; each of the 9 rows of three conversions asks too.
      EXPECT_EQ(interrupted, 3 + 3 * 9);
    }
  }
}

TEST_F(DriverRender, LeavesTheOutputAloneWhenInterruptedBeforeThePasses) {
  host.options().iterateThreads = 1;
  RenderCase frame = rows(3, 2);
  Instance instance(effect);
  ASSERT_TRUE(instance.setUp().succeeded());
  setParameters(instance, frame);
  Instance::ParamArray params = instance.params(&frame.input);
  for (const int k : {0, 5, 6}) {  // by the handler, and twice by the driver after two worlds of two rows
    World output(WorldFormat::ArgbFloat, 3, 2);
    const World before = output;
    host.options().onAbort = [k](int call) { return call == k ? PF_Interrupt_CANCEL : PF_Err_NONE; };
    const auto result =
        instance.call({.selector = PF_Cmd_RENDER, .params = params.pointers(), .output = &output.record()});
    EXPECT_EQ(result.code, PF_Interrupt_CANCEL);
    EXPECT_EQ(output.packed(), before.packed());
  }
}

}  // namespace
}  // namespace quiltor::render_tests
