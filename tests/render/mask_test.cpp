// Frames that are limited to one of the layer's masks.
#include <gmock/gmock.h>

#include <optional>
#include <utility>
#include <vector>

#include "tests/render/hand_case.h"
#include "tests/render/render_test.h"

namespace quiltor::render_tests {
namespace {

using standalone::HostCall;
using standalone::Instance;
using standalone::Mask;
using standalone::RenderResult;

constexpr Rgba kInput{0.2, 0.4, 0.6, 1}, kPattern{1, 0, 0.8, 1};

Mask rectangle(int id, double left, double top, double right, double bottom) {
  return {.id = id, .vertices = {{left, top}, {right, top}, {right, bottom}, {left, bottom}}};
}

class MaskRender : public RenderTest {
 protected:
  // The pattern covers the input everywhere.
  RenderResult render(int mask, World& input, std::optional<PF_LRect> request = {}) {
    const World pattern = filled(4, 4, kPattern, input.format());
    Instance instance(effect);
    EXPECT_TRUE(instance.setUp().succeeded());
    instance.setChoice(kSource, 1);
    instance.setLayer(kPatternLayer, &pattern);
    instance.setPath(kMask, static_cast<PF_PathID>(mask));
    return instance.renderSmart({.input = &input, .request = request});
  }

  World masked(int mask, int width, int height, WorldFormat format = WorldFormat::Argb8) {
    World input = filled(width, height, kInput, format);
    RenderResult result = render(mask, input);
    EXPECT_EQ(result.code, PF_Err_NONE);
    EXPECT_EQ(result.message, "");
    return result.output ? std::move(*result.output) : filled(width, height, {}, format);
  }

  // A frame of 8 x 8 pixels at a place inside the layer.
  World maskedAt(int x, int y, WorldFormat format) {
    World input = filled(8, 8, kInput, format);
    input.setOrigin(x, y);
    RenderResult result = render(1, input);
    EXPECT_EQ(result.code, PF_Err_NONE);
    return result.output ? std::move(*result.output) : filled(8, 8, {}, format);
  }

  static void expectDrawn(const World& picture, int x, int y) {
    EXPECT_NEAR(picture.at(x, y).r, kPattern.r, 0.002) << x << " " << y;
    EXPECT_NEAR(picture.at(x, y).g, kPattern.g, 0.002) << x << " " << y;
    EXPECT_NEAR(picture.at(x, y).a, 1, 0.002) << x << " " << y;
  }
  static void expectLeftOut(const World& picture, int x, int y) {
    EXPECT_NEAR(picture.at(x, y).r, kInput.r, 0.002) << x << " " << y;
    EXPECT_NEAR(picture.at(x, y).b, kInput.b, 0.002) << x << " " << y;
    EXPECT_EQ(picture.at(x, y).a, 0) << x << " " << y;
  }
  static bool isWholeAt(const World& picture, int x, int y) { return picture.at(x, y).a > 0.99; }
};

TEST_F(MaskRender, ShowsThePatternInsideAndTheInputsColourWithoutAlphaOutside) {
  host.options().masks = {rectangle(3, 2, 1, 6, 4)};
  for (const WorldFormat format : {WorldFormat::Argb8, WorldFormat::Argb16, WorldFormat::ArgbFloat}) {
    const World picture = masked(3, 8, 6, format);
    for (int y = 0; y < 6; ++y) {
      for (int x = 0; x < 8; ++x) {
        const bool inside = x >= 2 && x < 6 && y >= 1 && y < 4;
        inside ? expectDrawn(picture, x, y) : expectLeftOut(picture, x, y);
      }
    }
  }
}

TEST_F(MaskRender, ShowsThePatternOutsideAnInvertedMask) {
  Mask mask = rectangle(1, 0, 0, 4, 6);
  mask.inverted = true;
  host.options().masks = {mask};
  const World picture = masked(1, 8, 6);
  expectLeftOut(picture, 3, 3);
  expectDrawn(picture, 4, 3);
}

TEST_F(MaskRender, IsNotLimitedWhenNoMaskIsChosen) {
  host.options().masks = {rectangle(1, 0, 0, 2, 2)};
  const World picture = masked(0, 8, 6);
  expectDrawn(picture, 7, 5);
  EXPECT_EQ(host.faults().count(HostCall::Mask), 0u);
}

TEST_F(MaskRender, IsNotLimitedByAMaskThatIsGone) {
  host.options().masks = {rectangle(1, 0, 0, 2, 2), rectangle(2, 0, 0, 2, 2)};
  expectDrawn(masked(7, 8, 6), 7, 5);
}

TEST_F(MaskRender, IsNotLimitedByAMaskWithoutAPath) {
  host.options().masks = {{.id = 4}};
  expectDrawn(masked(4, 8, 6), 7, 5);
}

TEST_F(MaskRender, FindsTheMaskByItsIdentifierAmongOthers) {
  host.options().masks = {rectangle(9, 0, 0, 8, 6), rectangle(5, 0, 0, 4, 6), rectangle(2, 4, 0, 8, 6)};
  const World picture = masked(5, 8, 6);
  expectDrawn(picture, 3, 5);
  expectLeftOut(picture, 4, 5);
}

TEST_F(MaskRender, HasHardEdgesWithoutFeatherAndSoftOnesWithIt) {
  host.options().masks = {rectangle(1, 0, 0, 16, 8)};
  const World hard = masked(1, 32, 8, WorldFormat::ArgbFloat);
  EXPECT_EQ(hard.at(15, 4).a, 1);
  EXPECT_EQ(hard.at(16, 4).a, 0);
  host.options().masks[0].featherX = 8;
  const World soft = masked(1, 32, 8, WorldFormat::ArgbFloat);
  for (int x = 13; x < 19; ++x) EXPECT_GT(soft.at(x, 4).a, soft.at(x + 1, 4).a) << x;
  EXPECT_NEAR(soft.at(15, 4).a + soft.at(16, 4).a, 1, 0.02);
}

TEST_F(MaskRender, HalvesTheFeatherAtHalfTheResolution) {
  host.options().masks = {rectangle(1, -50, -50, 16, 60)};
  host.options().masks[0].featherX = 5;
  const World small = masked(1, 32, 8, WorldFormat::ArgbFloat);
  host.options().masks = {rectangle(1, -100, -100, 32, 120)};
  host.options().masks[0].featherX = 10;
  host.options().downsampleX = host.options().downsampleY = {1, 2};
  const World half = masked(1, 32, 8, WorldFormat::ArgbFloat);
  EXPECT_EQ(half.packed(), small.packed());
}

TEST_F(MaskRender, ScalesTheFeatherOfEachAxisByTheResolutionOfThatAxis) {
  for (const bool across : {true, false}) {
    host.options().downsampleX = host.options().downsampleY = {1, 1};
    host.options().masks = {rectangle(1, -50, -50, 16, 16)};
    Mask& mask = host.options().masks[0];
    (across ? mask.featherX : mask.featherY) = 5;
    const World small = masked(1, 32, 32, WorldFormat::ArgbFloat);
    mask = rectangle(1, -200, -100, 64, 32);
    (across ? mask.featherX : mask.featherY) = across ? 20 : 10;
    host.options().downsampleX = {1, 4};
    host.options().downsampleY = {1, 2};
    EXPECT_EQ(masked(1, 32, 32, WorldFormat::ArgbFloat).packed(), small.packed()) << (across ? "across" : "down");
  }
}

TEST_F(MaskRender, TakesPathAndFeatherAtTheTimeOfTheFrame) {
  host.options().currentTime = 50;
  host.options().timeScale = 25;
  host.options().maskAt = [](const Mask& mask, double seconds) {
    Mask moved = rectangle(mask.id, 0, 0, 8 + 4 * seconds, 8);
    moved.featherX = 4 * seconds;
    return moved;
  };
  host.options().masks = {rectangle(1, 0, 0, 1, 1)};
  const World moving = masked(1, 32, 8, WorldFormat::ArgbFloat);
  host.options().maskAt = nullptr;
  host.options().masks = {rectangle(1, 0, 0, 16, 8)};
  host.options().masks[0].featherX = 8;
  EXPECT_EQ(moving.packed(), masked(1, 32, 8, WorldFormat::ArgbFloat).packed());
}

TEST_F(MaskRender, LimitsALayerOfOnePixelAtAnyResolution) {
  host.options().masks = {rectangle(1, -9, -9, 9, 9), rectangle(2, 50, 50, 60, 60)};
  host.options().downsampleX = host.options().downsampleY = {1, 2};
  World input = filled(1, 1, kInput, WorldFormat::Argb8);
  for (const bool inside : {true, false}) {
    Instance instance(effect);
    ASSERT_TRUE(instance.setUp().succeeded());
    instance.setPath(kMask, inside ? 1 : 2);
    instance.setChoice(kSource, 1);
    Instance::ParamArray params = instance.params(&input);
    World output(WorldFormat::Argb8, 1, 1);
    const auto result = instance.call({.selector = PF_Cmd_RENDER,
                                       .params = params.pointers(),
                                       .output = &output.record(),
                                       .prepare = [](PF_InData& in, PF_OutData&) { in.width = in.height = 1; }});
    EXPECT_EQ(result.code, PF_Err_NONE);
    EXPECT_EQ(output.at(0, 0).a, inside ? 1 : 0);
  }
}

TEST_F(MaskRender, DrawsThePathInTheQualityOfTheFrame) {
  host.options().masks = {{.id = 1, .vertices = {{1, 1}, {17, 4}, {6, 11}}}};
  const auto partlyCovered = [this](A_long quality) {
    host.options().quality = quality;
    const World picture = masked(1, 20, 12);
    int count = 0;
    for (int y = 0; y < 12; ++y)
      for (int x = 0; x < 20; ++x) count += picture.at(x, y).a > 0 && picture.at(x, y).a < 1 ? 1 : 0;
    return count;
  };
  EXPECT_EQ(partlyCovered(PF_Quality_LO), 0);
  EXPECT_GT(partlyCovered(PF_Quality_HI), 20);
}

// Deliberate: the part's place inside the layer is scaled by the resolution in 8 bits and not in deeper worlds.
TEST_F(MaskRender, PlacesTheMatteOfAPartByTheResolutionInEightBitsOnly) {
  host.options().masks = {rectangle(1, 0, 0, 12, 100)};
  host.options().downsampleX = host.options().downsampleY = {1, 2};
  const PF_LRect part{4, 4, 12, 12};
  for (const auto& [format, inside] :
       {std::pair{WorldFormat::Argb8, 4}, {WorldFormat::Argb16, 2}, {WorldFormat::ArgbFloat, 2}}) {
    World input = filled(16, 16, kInput, format);
    const RenderResult result = render(1, input, part);
    ASSERT_TRUE(result.output.has_value());
    ASSERT_EQ(result.output->width(), 8);
    for (int x = 0; x < 8; ++x) EXPECT_EQ(isWholeAt(*result.output, x, 2), x < inside) << x;
  }
}

TEST_F(MaskRender, PlacesTheMatteOfAPartByTheResolutionOfEachAxis) {
  // Six columns and nine rows of the frame.
  host.options().masks = {rectangle(1, 0, 0, 24, 18)};
  host.options().downsampleX = {1, 4};
  host.options().downsampleY = {1, 2};
  struct Inside {
    WorldFormat format;
    int columns, rows;
  };
  for (const auto& [format, columns, rows] :
       {Inside{WorldFormat::Argb8, 5, 7}, {WorldFormat::Argb16, 2, 5}, {WorldFormat::ArgbFloat, 2, 5}}) {
    World input = filled(16, 16, kInput, format);
    const RenderResult result = render(1, input, PF_LRect{4, 4, 12, 12});
    ASSERT_TRUE(result.output.has_value());
    for (int y = 0; y < 8; ++y) {
      for (int x = 0; x < 8; ++x) EXPECT_EQ(isWholeAt(*result.output, x, y), x < columns && y < rows) << x << " " << y;
    }
  }
}

TEST_F(MaskRender, TakesTheMattesFirstColumnAndRowForWhatLiesBeforeThem) {
  host.options().masks = {rectangle(1, 1, 1, 4, 3)};
  for (const WorldFormat format : {WorldFormat::Argb8, WorldFormat::Argb16, WorldFormat::ArgbFloat}) {
    const World picture = maskedAt(-3, -5, format);
    for (int y = 0; y < 8; ++y) {
      for (int x = 0; x < 8; ++x) {
        EXPECT_EQ(isWholeAt(picture, x, y), x >= 1 && x < 4 && y >= 6) << x << " " << y;
      }
    }
  }
}

TEST_F(MaskRender, TakesTheMattesLastColumnAndRowForWhatLiesBehindThem) {
  host.options().downsampleX = {1, 4};
  host.options().downsampleY = {1, 2};
  for (const WorldFormat format : {WorldFormat::Argb8, WorldFormat::Argb16, WorldFormat::ArgbFloat}) {
    for (const bool inside : {true, false}) {
      // Up to the layer's end, and up to the pixel before it.
      host.options().masks = {inside ? rectangle(1, 28, 14, 32, 16) : rectangle(1, 0, 0, 28, 14)};
      const World picture = maskedAt(100, 100, format);
      for (int y = 0; y < 8; ++y) {
        for (int x = 0; x < 8; ++x) EXPECT_EQ(isWholeAt(picture, x, y), inside) << x << " " << y;
      }
    }
  }
}

TEST_F(MaskRender, ShowsAMessageAndDrawsUnlimitedWithoutTheSuiteThatDrawsPaths) {
  host.options().masks = {rectangle(1, 0, 0, 2, 2)};
  host.options().suitesNotOffered = {{"AEGP Mask Suite", 1}};
  World input = filled(8, 6, kInput, WorldFormat::Argb8);
  const RenderResult result = render(1, input);
  EXPECT_EQ(result.code, PF_Err_NONE);
  EXPECT_EQ(result.message, "Error loading suite");
  ASSERT_TRUE(result.output.has_value());
  expectDrawn(*result.output, 7, 5);
}

TEST_F(MaskRender, Answers516WithoutAnyOtherSuiteThatMasksNeed) {
  host.options().masks = {rectangle(1, 0, 0, 2, 2)};
  World input = filled(8, 6, kInput, WorldFormat::Argb8);
  for (const auto& suite : std::vector<std::pair<std::string, int>>{{"AEGP Layer Mask Suite", 6},
                                                                    {"PF Path Query Suite", 1},
                                                                    {"PF Path Data Suite", 1},
                                                                    {"AEGP Stream Suite", 9},
                                                                    {"PF Fill Matte Suite", 2}}) {
    host.options().suitesNotOffered = {suite};
    EXPECT_EQ(render(1, input).code, 516) << suite.first;
    EXPECT_EQ(render(0, input).code, PF_Err_NONE) << suite.first;
  }
}

// Deliberate: no mask mixes two formats. Without one the output is drawn in its own.
TEST_F(MaskRender, Answers516WhenInputAndOutputAreOfTwoFormats) {
  host.options().masks = {rectangle(1, 0, 0, 2, 2)};
  World input = filled(4, 3, kInput, WorldFormat::Argb8);
  for (const PF_PathID mask : {0u, 1u}) {
    Instance instance(effect);
    ASSERT_TRUE(instance.setUp().succeeded());
    instance.setPath(kMask, mask);
    instance.setChoice(kSource, 1);
    Instance::ParamArray params = instance.params(&input);
    World output(WorldFormat::Argb16, 4, 3);
    const auto result =
        instance.call({.selector = PF_Cmd_RENDER, .params = params.pointers(), .output = &output.record()});
    EXPECT_EQ(result.code, mask == 0 ? PF_Err_NONE : PF_Err_BAD_CALLBACK_PARAM);
    EXPECT_EQ(output.at(3, 2).a, 1) << mask;
  }
}

// The host's failures while the mask is read leave the frame unlimited; whatever fails, everything is given back.
TEST_F(MaskRender, GivesEverythingBackWhicheverMaskCallFails) {
  host.options().masks = {rectangle(8, 0, 0, 2, 2), rectangle(1, 0, 0, 4, 6)};
  World input = filled(8, 6, kInput, WorldFormat::Argb8);
  size_t failed = 0;
  for (const HostCall call :
       {HostCall::Mask, HostCall::DisposeMask, HostCall::Path, HostCall::CheckinPath, HostCall::DrawPath,
        HostCall::Fill, HostCall::NewWorld, HostCall::Stream, HostCall::StreamValue}) {
    for (size_t k = 0;; ++k) {
      host.faults().failAt(call, k);
      const RenderResult result = render(1, input);
      const bool struck = host.faults().struck();
      host.faults().failNever();
      ASSERT_EQ(host.findings().text(), "");
      if (!struck) break;
      ++failed;
      EXPECT_THAT(result.code, testing::AnyOf(PF_Err_NONE, PF_Err_BAD_CALLBACK_PARAM, PF_Err_OUT_OF_MEMORY));
      const RenderResult again = render(1, input);
      ASSERT_TRUE(again.output.has_value());
      expectDrawn(*again.output, 3, 3);
      expectLeftOut(*again.output, 4, 3);
    }
  }
  EXPECT_GE(failed, 15u);
}

}  // namespace
}  // namespace quiltor::render_tests
