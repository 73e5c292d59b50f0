#pragma once

#include <array>
#include <cstdint>

#include "description/language/description.h"

namespace quiltor {

// A parameter's value as the renderer sees it: scalars in the last word, points in the last two, colours in the last
// three.
struct ParamSlot {
  std::array<float, 4> words{};

  float scalar() const { return words[3]; }
};
static_assert(sizeof(ParamSlot) == 16);

// A layer input as a private copy: R, G, B, A, in bytes or in 32-bit floats.
struct WorldRecord {
  int32_t width = 0;
  int32_t height = 0;
  void* pixels = nullptr;
  int32_t bits = 32;  // per channel: 8 or 32
  int32_t rowBytes = 0;
  double originX = 0, originY = 0;  // of the layer inside the frame
  int32_t reserved = 0;
};

// The private result: R, G, B, A in 32-bit floats, of the output world's size.
struct ResultRecord {
  int32_t width = 0;
  int32_t height = 0;
  float* pixels = nullptr;
  int32_t bits = 32;
  int32_t rowBytes = 0;
};

// The integer words that parameters with special codes fill, and that layer checkouts read.
struct SpecialWords {
  int32_t frameStep = 0;
  std::array<int32_t, 10> ints{};
};

inline constexpr int32_t kMaxWorlds = kMaxLayers;  // the input layer is one of them

// All that one render shares: the parameter values, the layer inputs and the result.
struct RenderBlock {
  explicit RenderBlock(const DescriptionSettings& settings)
      : smooth(settings.smooth), range(settings.range), repeat(settings.repeat) {}

  const ParamSlot& slot(int32_t index) const { return slots[static_cast<size_t>(index)]; }

  int32_t smooth, range, repeat;  // range enables range measuring
  SpecialWords special;

  std::array<ParamSlot, kMaxParams> slots{};
  double timeSeconds = 0;
  float downsampleX = 1, downsampleY = 1;
  float pixelAspectNum = 1, pixelAspectDen = 1;
  float rangeMin = 0, rangeMax = 1;  // of the input layer's channels when they are measured
  std::array<WorldRecord, kMaxWorlds> worlds{};
  ResultRecord result;
  int32_t convertCount = 0;  // how many worlds are copied; below 1 means all
};

}  // namespace quiltor
