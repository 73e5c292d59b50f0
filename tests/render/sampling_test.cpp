// Where the pattern's pixels land, with numbers worked out by hand.
#include <vector>

#include "tests/render/hand_case.h"
#include "tests/render/render_test.h"

namespace quiltor::render_tests {
namespace {

class SamplingRender : public RenderTest {};

const Rgba kBlackOpaque{0, 0, 0, 1};

World dotted(int width, int height, int x, int y) {
  World pattern = filled(width, height, kBlackOpaque);
  pattern.set(x, y, {1, 0.5, 0.25, 1});
  return pattern;
}

TEST_F(SamplingRender, PutsThePatternsCentrePixelOnTheOffsetPoint) {
  RenderCase frame = overlaid(filled(9, 7, kBlackOpaque), dotted(5, 3, 2, 1));
  frame.tileMode = kSingle;
  frame.offsetX = fixed(6) + 49152;  // only whole pixels count
  frame.offsetY = fixed(3) + 65535;
  const World picture = drawn(frame);
  for (int y = 0; y < 7; ++y)
    for (int x = 0; x < 9; ++x) expectPixel(picture, x, y, x == 6 && y == 3 ? Rgba{1, 0.5, 0.25, 1} : kBlackOpaque);
}

TEST_F(SamplingRender, CountsANegativeOffsetsWholePixelsDownward) {
  RenderCase frame = overlaid(filled(3, 1, kBlackOpaque), rowOf({grey(0.1), grey(0.2), grey(0.3), grey(0.4)}));
  frame.offsetX = -1 * 32768;  // -0.5 counts as -1
  const World picture = drawn(frame);
  expectPixel(picture, 0, 0, grey(0.4));
  expectPixel(picture, 1, 0, grey(0.1));
}

TEST_F(SamplingRender, ShowsTheSameTexelsThousandsOfTilesAway) {
  RenderCase frame =
      overlaid(filled(7, 1, kBlackOpaque), rowOf({grey(0.1), grey(0.2), grey(0.3), grey(0.4), grey(0.5)}));
  for (const int tiles : {-6500, -6000, -1, 0, 1, 6000, 6500}) {
    frame.offsetX = fixed(2 + 5 * tiles);
    frame.offsetY = fixed(-4 * tiles);
    const World picture = drawn(frame);
    for (int x = 0; x < 7; ++x) expectPixel(picture, x, 0, grey(0.1 * (x % 5 + 1)), std::to_string(tiles) + " tiles");
  }
}

TEST_F(SamplingRender, ShowsTheMirrorImageBeyondTheLastColumn) {
  RenderCase frame = overlaid(filled(13, 1, kBlackOpaque), rowOf({grey(0), grey(0.25), grey(0.5), grey(1)}));
  frame.tileMode = kMirrored;
  frame.scale = 200;
  frame.offsetX = fixed(4);  // pixel x shows pattern position x / 2
  const World picture = drawn(frame);
  const double expected[] = {0, 0.125, 0.25, 0.375, 0.5, 0.75, 1, 1, 1, 1, 1, 0.75, 0.5};
  for (int x = 0; x < 13; ++x) expectPixel(picture, x, 0, grey(expected[x]));
}

TEST_F(SamplingRender, MirrorsAboutThePatternsOrigin) {
  RenderCase frame = overlaid(filled(5, 1, kBlackOpaque), rowOf({grey(0.1), grey(0.2), grey(0.3), grey(0.4)}));
  frame.tileMode = kMirrored;
  frame.offsetX = fixed(2 + 3);  // pixel x shows pattern position x - 3
  const World picture = drawn(frame);
  const double expected[] = {0.4, 0.3, 0.2, 0.1, 0.2};
  for (int x = 0; x < 5; ++x) expectPixel(picture, x, 0, grey(expected[x]));
}

TEST_F(SamplingRender, IsOpaqueBlackOutsideASingleTile) {
  RenderCase frame = overlaid(filled(6, 3, {0.2, 0.4, 0.6, 0.5}), filled(2, 1, {1, 1, 1, 1}));
  frame.tileMode = kSingle;
  frame.invert = true;  // neither inversion nor tint reaches the black
  frame.tintOpacity = 100;
  frame.tint = {255, 255, 255, 255};
  frame.offsetX = fixed(3);
  frame.offsetY = fixed(1);
  frame.blendMode = kAverage;
  const World picture = drawn(frame);
  // The pattern is opaque everywhere, so that the mix shows alone: half the input over black, and over inverted white.
  expectAll(picture, {0.1, 0.2, 0.3, 0.5});
  frame.invert = false;
  const World upright = drawn(frame);
  expectPixel(upright, 2, 1, {0.6, 0.7, 0.8, 0.5});
  expectPixel(upright, 3, 1, {0.6, 0.7, 0.8, 0.5});
  expectPixel(upright, 1, 1, {0.1, 0.2, 0.3, 0.5});
  expectPixel(upright, 4, 1, {0.1, 0.2, 0.3, 0.5});
  expectPixel(upright, 2, 0, {0.1, 0.2, 0.3, 0.5});
  expectPixel(upright, 3, 2, {0.1, 0.2, 0.3, 0.5});
}

TEST_F(SamplingRender, TakesAThreeChannelFileAsOpaque) {
  const World input = filled(3, 2, {0, 0, 0, 1});
  for (const PatternSource source : {PatternSource::PngRgb, PatternSource::Jpeg, PatternSource::Placeholder}) {
    const bool small = source != PatternSource::Placeholder;
    FilePixels file{small ? 3 : 50, small ? 2 : 50, 3, std::vector<uint8_t>(18, 200)};
    const World picture = drawn(overlaidFile(input, source, file));
    const double level = small ? 200 / 255.0 : 1;
    expectAll(picture, {level, level, level, 1});
  }
}

TEST_F(SamplingRender, TakesTheAlphaOfAFourChannelFile) {
  const FilePixels file{2, 1, 4, {255, 0, 51, 102, 0, 255, 51, 204}};
  const World picture = drawn(overlaidFile(filled(2, 1, {0, 0, 0, 1}), PatternSource::PngRgba, file));
  expectPixel(picture, 0, 0, {1, 0, 0.2, 0.4});
  expectPixel(picture, 1, 0, {0, 1, 0.2, 0.8});
}

TEST_F(SamplingRender, InterpolatesTheLastColumnOnlyTowardsItself) {
  for (const int tile : {kSingle, kTiled, kMirrored}) {
    RenderCase frame = overlaid(filled(4, 1, kBlackOpaque), rowOf({grey(0), grey(1)}));
    frame.tileMode = tile;
    frame.scale = 200;
    frame.offsetX = fixed(2);
    const World picture = drawn(frame);
    const double expected[] = {0, 0.5, 1, 1};
    for (int x = 0; x < 4; ++x) expectPixel(picture, x, 0, grey(expected[x]), "tile mode " + std::to_string(tile));
  }
}

TEST_F(SamplingRender, InterpolatesTheLastRowOnlyTowardsItself) {
  World pattern = filled(1, 2, grey(0));
  pattern.set(0, 1, grey(1));
  RenderCase frame = overlaid(filled(1, 6, kBlackOpaque), pattern);
  frame.scale = 200;
  frame.offsetY = fixed(2);
  const World picture = drawn(frame);
  const double expected[] = {0, 0.5, 1, 1, 0, 0.5};
  for (int y = 0; y < 6; ++y) expectPixel(picture, 0, y, grey(expected[y]));
}

TEST_F(SamplingRender, DoesNotInterpolateAlpha) {
  RenderCase frame = overlaid(filled(4, 1, kBlackOpaque), rowOf({grey(0.5, 0.25), grey(0.5, 0.75)}));
  frame.scale = 200;
  frame.offsetX = fixed(2);
  const World picture = drawn(frame);
  const double expected[] = {0.25, 0.25, 0.75, 0.75};
  for (int x = 0; x < 4; ++x) expectPixel(picture, x, 0, grey(0.5, expected[x]));
}

TEST_F(SamplingRender, TurnsThePatternClockwiseByWholeDegrees) {
  RenderCase frame = overlaid(filled(3, 3, kBlackOpaque), dotted(3, 3, 2, 1));  // a dot to the right of the centre
  frame.rotation = fixed(90) + 60000;
  const World picture = drawn(frame);
  expectPixel(picture, 1, 2, {1, 0.5, 0.25, 1});
  expectPixel(picture, 2, 1, kBlackOpaque);
}

TEST_F(SamplingRender, ShowsThePatternLargerAtALargerScale) {
  RenderCase frame = overlaid(filled(12, 1, kBlackOpaque), rowOf({grey(0.25), grey(0.75)}));
  frame.scale = 500;
  frame.offsetX = fixed(5);
  const World picture = drawn(frame);
  expectPixel(picture, 0, 0, grey(0.25));
  expectPixel(picture, 1, 0, grey(0.35));
  expectPixel(picture, 5, 0, grey(0.75));
  expectPixel(picture, 9, 0, grey(0.75));
  expectPixel(picture, 10, 0, grey(0.25));
}

TEST_F(SamplingRender, KeepsAFilesSizeInTheLayerAtReducedResolution) {
  FilePixels file{8, 1, 4, {}};
  for (int x = 0; x < 8; ++x) file.bytes.insert(file.bytes.end(), {static_cast<uint8_t>(20 * x), 0, 0, 255});
  RenderCase frame = overlaidFile(filled(4, 1, kBlackOpaque), PatternSource::PngRgba, file);
  frame.downsampleX = {1, 2};
  frame.downsampleY = {1, 4};
  const World picture = drawn(frame);
  for (int x = 0; x < 4; ++x) expectPixel(picture, x, 0, {40 * x / 255.0, 0, 0, 1});
}

TEST_F(SamplingRender, DoesNotStretchALayerAtReducedResolution) {
  RenderCase frame = overlaid(filled(4, 1, kBlackOpaque), rowOf({grey(0.1), grey(0.2), grey(0.3), grey(0.4)}));
  frame.downsampleX = {1, 2};
  const World picture = drawn(frame);
  for (int x = 0; x < 4; ++x) expectPixel(picture, x, 0, grey(0.1 * (x + 1)));
}

TEST_F(SamplingRender, CountsPositionsFromTheInputsOriginInTheFrame) {
  RenderCase frame = overlaid(filled(4, 1, kBlackOpaque), rowOf({grey(0.1), grey(0.2), grey(0.3), grey(0.4)}));
  frame.input.setOrigin(3, -2);
  const World picture = drawn(frame);
  const double expected[] = {0.4, 0.1, 0.2, 0.3};
  for (int x = 0; x < 4; ++x) expectPixel(picture, x, 0, grey(expected[x]));
}

TEST_F(SamplingRender, LeavesThePatternTransparentWhenNoFileIsLoaded) {
  for (const int tile : {kSingle, kTiled, kMirrored}) {
    RenderCase frame = overlaidFile(filled(3, 2, {0.2, 0.4, 0.6, 0.5}), PatternSource::MissingFile, {0, 0, 0, {}});
    frame.tileMode = tile;
    expectAll(drawn(frame), {0, 0, 0, 0}, "Normal");
    frame.blendMode = kMultiply;
    expectAll(drawn(frame), {0.2, 0.4, 0.6, 0.25}, "Multiply");
    frame.invert = true;
    frame.blendMode = kSilhouetteAlpha;
    expectAll(drawn(frame), {0.2, 0.4, 0.6, 0.25}, "Silhouette Alpha");
  }
}

}  // namespace
}  // namespace quiltor::render_tests
