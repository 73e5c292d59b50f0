#pragma once

#include <initializer_list>
#include <string>

#include "tests/render/render_case.h"

namespace quiltor::render_tests {

using standalone::Rgba;
using standalone::World;
using standalone::WorldFormat;

// Float worlds for numbers worked out by hand.
[[nodiscard]] World filled(int width, int height, const Rgba& color, WorldFormat format = WorldFormat::ArgbFloat);
[[nodiscard]] World rowOf(std::initializer_list<Rgba> pixels);
[[nodiscard]] constexpr Rgba grey(double value, double alpha = 1) { return {value, value, value, alpha}; }

// Lays the pattern's first pixel on the input's first pixel: tiled, Normal, everything else neutral, smart.
[[nodiscard]] RenderCase overlaid(World input, World pattern);
// The same with a pattern file.
[[nodiscard]] RenderCase overlaidFile(World input, PatternSource source, FilePixels file);

// Holds one pixel to numbers worked out by hand.
void expectPixel(const World& drawn, int x, int y, const Rgba& expected, const std::string& what = "");
// The whole picture at once.
void expectAll(const World& drawn, const Rgba& expected, const std::string& what = "");

// The modes' places in the menu, from 1.
enum Mode : int {
  kNormal = 1,
  kStencilAlpha,
  kStencilLuma,
  kSilhouetteAlpha,
  kSilhouetteLuma,
  kLighten,
  kDarken,
  kMultiply,
  kAverage,
  kDifference,
  kNegation,
  kExclusion,
  kScreen,
  kOverlay,
  kSoftLight,
  kHardLight,
  kColorDodge,
  kColorBurn,
  kLinearDodge,
  kLinearBurn,
  kLinearLight,
  kVividLight,
  kPinLight,
  kHardMix,
  kReflect,
  kGlow,
  kPhoenix,
};
enum TileItem : int { kSingle = 1, kTiled, kMirrored };

}  // namespace quiltor::render_tests
