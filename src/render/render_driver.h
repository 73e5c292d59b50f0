#pragma once

#include <span>

#include "host/host_error.h"
#include "hostapi/effect.h"
#include "render/render_block.h"

namespace quiltor {

// Renders one frame: copies the layer worlds (the input layer first) into private buffers, draws, and writes the output
// world. The block's header and slots are filled. One render at a time, in this process and in all others. Without the
// instance's data, or without the host's world suite, nothing is drawn and the code tells no error of its own.
HostErr renderEffect(const PF_InData& in, PF_OutData& out, RenderBlock& block,
                     std::span<const PF_EffectWorld* const> worlds, PF_EffectWorld& output);

}  // namespace quiltor
