#pragma once

#include "host/host_error.h"
#include "hostapi/effect.h"
#include "hostapi/smart_render.h"

namespace quiltor {

// The handlers of the host's render selectors. Any host thread may call them, several at once. They return the host's
// code or throw it; either way everything that they took from the host has been given back.

// PF_Cmd_RENDER: one frame, the classic way. params[0] is the input layer.
HostErr render(PF_InData& in, PF_OutData& out, PF_ParamDef** params, PF_EffectWorld* output);

// PF_Cmd_SMART_PRE_RENDER: checks the frame's layers and values out and leaves the values in the pre-render data.
HostErr smartPreRender(PF_InData& in, PF_PreRenderExtra& extra);

// PF_Cmd_SMART_RENDER: draws the frame from the pre-render data.
HostErr smartRender(PF_InData& in, PF_OutData& out, PF_SmartRenderExtra& extra);

}  // namespace quiltor
