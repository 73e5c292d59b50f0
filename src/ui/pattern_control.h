#pragma once

#include "host/host_error.h"
#include "hostapi/custom_ui.h"

namespace quiltor {

// The handler of events in the pattern control: draws the instance's preview, and opens a dialog on a click. What the
// user picks there becomes the instance's pattern. Every other event does nothing. Tells the user when the host lacks a
// suite. Main thread only.
HostErr patternControlEvent(const PF_InData& in, PF_OutData& out, PF_ParamDef** params, PF_EventExtra& event);

}  // namespace quiltor
