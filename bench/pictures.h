#pragma once

#include "standalone/host/services/world.h"

namespace quiltor::bench {

inline constexpr int kPatternSide = 256;

// An opaque layer like a photograph: slopes of several sizes with grain.
standalone::World layerPicture(standalone::WorldFormat format, int width, int height);

// An opaque pattern of kPatternSide pixels each way: waves over checks with grain, without a seam.
standalone::World patternPicture(standalone::WorldFormat format);

// A picture so many times beside and below itself, which tiled gives the same frame from more memory.
standalone::World repeated(const standalone::World& picture, int times);

}  // namespace quiltor::bench
