#pragma once

#include "formats/pattern_image.h"

namespace quiltor {

// The whole picture squeezed to 50 by 50 pixels of R, G, B, each taken from one pixel of it; a fourth channel is
// dropped. The picture must be whole.
PatternImage makeThumbnail(const PatternImage& image);

}  // namespace quiltor
