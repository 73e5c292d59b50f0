// What the modes make of two colours, with numbers worked out by hand.
#include <array>
#include <cmath>
#include <limits>
#include <string>
#include <vector>

#include "tests/render/hand_case.h"
#include "tests/render/render_test.h"

namespace quiltor::render_tests {
namespace {

class BlendRender : public RenderTest {
 protected:
  // The pixel that a mode makes of one pixel of each.
  Rgba blend(int mode, const Rgba& input, const Rgba& pattern, double opacity = 100) {
    RenderCase frame = overlaid(filled(1, 1, input), filled(1, 1, pattern));
    frame.blendMode = mode;
    frame.opacity = opacity;
    const World picture = drawn(frame);
    return picture.width() == 1 ? picture.at(0, 0) : Rgba{};
  }

  void expectBlend(int mode, const Rgba& input, const Rgba& pattern, const Rgba& expected, double opacity = 100) {
    RenderCase frame = overlaid(filled(1, 1, input), filled(1, 1, pattern));
    frame.blendMode = mode;
    frame.opacity = opacity;
    expectAll(drawn(frame), expected, "mode " + std::to_string(mode));
  }
};

// The 22 modes that mix each channel, from Lighten to Phoenix, over opaque pixels where the mix shows as it is.
struct MixRow {
  double input, pattern;
  std::array<double, 22> mixes;
};

constexpr MixRow kMixes[] = {
    {0.25, 0.5, {0.5,       0.25, 0.125, 0.375, 0.25, 0.75, 0.5, 0.625, 0.25,      0.375, 0.25,
                 0.6666667, 0,    0.75,  0,     0,    0,    0.5, 0,     0.3333333, 0.125, 0.75}},
    {0.75, 0.25, {0.75, 0.25, 0.1875, 0.5, 0.5,  1,   0.625, 0.8125, 0.375, 0.375, 0.625,
                  1,    0,    1,      0,   0.75, 0.5, 0.5,   1,      0.25,  0.75,  0.5}},
    {0.875, 0.75, {0.875, 0.75,      0.65625, 0.8125, 0.125, 0.375, 0.3125, 0.96875, 0.9375, 0.8370191, 0.9375,
                   1,     0.7142857, 1,       0.625,  1,     1,     0.75,   1,       1,      1,         0.875}},
    {0, 0.5, {0.5, 0, 0, 0.25, 0.5, 0.5, 0.5, 0.5, 0, 0.25, 0, 0.5, 0, 0.5, 0, 0, 0, 0, 0, 0.25, 0, 0.5}},
    {1, 0.5, {1, 0.5, 0.5, 0.75, 0.5, 0.5, 0.5, 1, 1, 0.7071068, 1, 1, 0.5, 1, 0.5, 1, 1, 1, 1, 1, 1, 0.5}},
    {0.5, 1, {1, 0.5, 0.5, 0.75, 0.5, 0.5, 0.5, 1, 1, 1, 1, 1, 1, 1, 0.5, 1, 1, 1, 1, 1, 1, 0.5}},
};

TEST_F(BlendRender, MixesEachChannelByTheModesFormula) {
  for (const MixRow& row : kMixes) {
    for (size_t i = 0; i < row.mixes.size(); ++i) {
      expectBlend(kLighten + static_cast<int>(i), grey(row.input), grey(row.pattern), grey(row.mixes[i]));
    }
  }
}

TEST_F(BlendRender, TreatsTheChannelsApart) {
  expectBlend(kMultiply, {0.5, 0.25, 1, 1}, {1, 0.5, 0.125, 1}, {0.5, 0.125, 0.125, 1});
  expectBlend(kDifference, {0.5, 0.25, 1, 1}, {1, 0.5, 0.125, 1}, {0.5, 0.25, 0.875, 1});
}

TEST_F(BlendRender, PassesATransparentPixelThroughInEveryMode) {
  for (int mode = kNormal; mode <= kPhoenix; ++mode) {
    expectBlend(mode, {0.1, 0.2, 0.3, 0}, {0.9, 0.8, 0.7, 0.6}, {0.1, 0.2, 0.3, 0});
    expectBlend(mode, {0.1, 2, -0.3, -0.5}, {0.9, 0.8, 0.7, 0.6}, {0.1, 2, -0.3, -0.5}, 50);
  }
}

TEST_F(BlendRender, ShowsAnOpaquePatternOverAHalfTransparentPixelAtAQuarter) {
  expectBlend(kNormal, {0.1, 0.2, 0.3, 0.5}, {0.9, 0.8, 0.7, 1}, {0.9, 0.8, 0.7, 0.25});
}

TEST_F(BlendRender, LimitsThePatternsAlphaToThePixelsOwn) {
  expectBlend(kNormal, grey(0.1, 0.5), grey(0.9, 0.25), grey(0.9, 0.125));
  expectBlend(kStencilAlpha, grey(0.1, 0.5), grey(0.9, 0.25), grey(0.1, 0.125));
  expectBlend(kStencilAlpha, grey(0.1, 0.5), grey(0.9, 0.75), grey(0.1, 0.25));
}

TEST_F(BlendRender, CutsByThePatternsAlphaOrLuma) {
  const Rgba input{0.1, 0.2, 0.3, 1};
  expectBlend(kStencilAlpha, input, {0, 0, 0, 0.25}, {0.1, 0.2, 0.3, 0.25});
  expectBlend(kSilhouetteAlpha, input, {0, 0, 0, 0.25}, {0.1, 0.2, 0.3, 0.75});
  expectBlend(kStencilLuma, input, {1, 0, 0, 0.1}, {0.1, 0.2, 0.3, 0.375});
  expectBlend(kStencilLuma, input, {0, 1, 0, 0.1}, {0.1, 0.2, 0.3, 0.5});
  expectBlend(kStencilLuma, input, {0, 0, 1, 0.1}, {0.1, 0.2, 0.3, 0.125});
  expectBlend(kSilhouetteLuma, input, {0, 1, 1, 0.1}, {0.1, 0.2, 0.3, 0.375});
  expectBlend(kSilhouetteLuma, input, {4, 4, 4, 0.1}, {0.1, 0.2, 0.3, 0});
}

TEST_F(BlendRender, DodgesToWhite) {
  expectBlend(kColorDodge, grey(1), grey(0.25), grey(1));
  expectBlend(kColorDodge, grey(0.75), grey(0.5), grey(1));
}

TEST_F(BlendRender, BurnsBlackToBlack) {
  expectBlend(kColorBurn, grey(0), grey(0.5), grey(0));
  expectBlend(kColorBurn, grey(0), grey(1), grey(0));
}

TEST_F(BlendRender, TestsThePatternForOverlayAndTheInputForHardLight) {
  expectBlend(kOverlay, grey(0.75), grey(0.25), grey(0.375));
  expectBlend(kHardLight, grey(0.75), grey(0.25), grey(0.625));
}

TEST_F(BlendRender, MakesOnlyZeroOrOneByHardMix) {
  World input(WorldFormat::ArgbFloat, 21, 21);
  World pattern(WorldFormat::ArgbFloat, 21, 21);
  for (int y = 0; y < 21; ++y) {
    for (int x = 0; x < 21; ++x) {
      input.set(x, y, {x / 20.0, x / 40.0, x / 10.0, 1});
      pattern.set(x, y, {y / 20.0, y / 10.0, y / 40.0, 1});
    }
  }
  RenderCase frame = overlaid(input, pattern);
  frame.blendMode = kHardMix;
  const World picture = drawn(frame);
  for (int y = 0; y < 21; ++y) {
    for (int x = 0; x < 21; ++x) {
      const Rgba pixel = picture.at(x, y);
      for (const double channel : {pixel.r, pixel.g, pixel.b}) EXPECT_TRUE(channel == 0 || channel == 1) << channel;
    }
  }
}

TEST_F(BlendRender, CutsResultsAboveOneAndKeepsThoseBelowZero) {
  expectBlend(kMultiply, grey(2), grey(1.5), grey(1));
  expectBlend(kMultiply, grey(-0.5), grey(1), grey(-0.5));
  expectBlend(kNormal, grey(0.5), grey(2), grey(2));
}

TEST_F(BlendRender, LaysTheMixOverThePixelByBothAlphas) {
  // Alpha 0.75; (0.5 * 0.5 * 0.5 + 0.5 * 0.25) / 0.75.
  expectBlend(kMultiply, grey(0.5, 0.5), grey(0.5, 0.5), grey(0.3333333, 0.375));
}

TEST_F(BlendRender, IsWhiteWhereNoAlphaIsLeft) {
  expectBlend(kMultiply, grey(0.5, 0.5), grey(0.5, -2), grey(1, -0.25));
}

TEST_F(BlendRender, KeepsTheColourAtOpacityZeroButNotTheAlpha) {
  expectBlend(kMultiply, {0.1, 0.2, 0.3, 0.5}, grey(0.9, 0.5), {0.1, 0.2, 0.3, 0.375}, 0);
  expectBlend(kNormal, {0.1, 0.2, 0.3, 0.5}, grey(0.9, 0.5), {0.1, 0.2, 0.3, 0.25}, 0);
}

TEST_F(BlendRender, MixesWithTheInputByOpacity) {
  expectBlend(kNormal, {0.1, 0.2, 0.4, 1}, {0.5, 0.6, 0.8, 1}, {0.2, 0.3, 0.5, 1}, 25);
}

TEST_F(BlendRender, LeavesBlackInTheMixForAModeBeyondTheMenu) {
  RenderCase frame = overlaid(filled(1, 1, grey(0.5)), filled(1, 1, grey(0.5, 0.25)));
  setSurroundings(frame);
  standalone::Instance instance(effect);
  ASSERT_TRUE(instance.setUp().succeeded());
  setParameters(instance, frame);
  for (const int item : {28, 29, 1000}) {
    instance.adjust(kBlendMode, [item](PF_ParamDef& mode, A_long, A_u_long) { mode.u.pd.value = item; });
    const standalone::RenderResult result = renderOf(instance, frame);
    ASSERT_TRUE(result.output.has_value());
    expectAll(*result.output, grey(0.375));
  }
}

TEST_F(BlendRender, CarriesANotANumberOnInFloat) {
  const double nan = std::numeric_limits<double>::quiet_NaN();
  EXPECT_TRUE(std::isnan(blend(kMultiply, {0.5, nan, 0.25, 1}, grey(0.5)).g));
  EXPECT_EQ(blend(kMultiply, {0.5, nan, 0.25, 1}, grey(0.5)).r, 0.25);
  EXPECT_TRUE(std::isnan(blend(kSoftLight, grey(0.75), {-0.5, 0.5, 0.5, 1}).r));
}

}  // namespace
}  // namespace quiltor::render_tests
