#pragma once

#include "standalone/host/services/world.h"

namespace quiltor::standalone {

// The picture at 1/n of its resolution, as a layer is rendered at reduced resolution: every pixel is the mean of n by n
// pixels (fewer at the right and the foot), colours weighted by their alpha. n is 1 or more.
[[nodiscard]] World shrink(const World& picture, int n);

}  // namespace quiltor::standalone
