#pragma once

#include "tests/reference/picture.h"

namespace quiltor::reference {

inline constexpr int kBlendModes = 27;

// What one of the modes from 5 on makes of one channel of the input and of the pattern. 0 for a mode beyond the last.
float mixChannel(int mode, float input, float pattern);

// The pattern laid onto the input by a mode at an opacity from 0 to 100.
Pixel composite(int mode, float opacity, const Pixel& input, const Pixel& pattern);

}  // namespace quiltor::reference
