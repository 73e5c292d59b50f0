#pragma once

#include <cstddef>

#include "description/language/description.h"
#include "hostapi/smart_render.h"
#include "render/render_block.h"

namespace quiltor {

// What smart pre-render leaves for smart render, inside a host handle: the parameter records by index and the results
// of the layer checkouts in the order of the layers. The input layer has no record; its place holds the special words.
struct PreRenderData {
  SpecialWords special;
  char unused[sizeof(PF_ParamDef) - sizeof(SpecialWords)];
  PF_ParamDef params[kMaxParams - 1];
  PF_CheckoutResult layers[kMaxLayers];

  PF_ParamDef& param(int32_t index) { return params[index - 1]; }  // index at least 1
};

static_assert(offsetof(PreRenderData, special) == 0);
static_assert(offsetof(PreRenderData, params) == 176);
static_assert(offsetof(PreRenderData, layers) == 256 * 176);
static_assert(sizeof(PreRenderData) == 47488);

}  // namespace quiltor
