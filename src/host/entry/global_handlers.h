#pragma once

#include "host/host_error.h"
#include "hostapi/effect.h"

namespace quiltor {

// The handlers of the selectors that concern the effect as a whole. Main thread only. They return the host's code or
// throw it; either way everything that they took from the host has been given back.

// PF_Cmd_GLOBAL_SETUP: declares the effect's capabilities, makes the global data, parses the built-in description.
HostErr globalSetup(PF_InData& in, PF_OutData& out);

// PF_Cmd_GLOBAL_SETDOWN: destroys the global data and what it owns.
HostErr globalSetdown(PF_InData& in);

// PF_Cmd_ABOUT: puts the About text into the host's message; nothing in the video editor.
HostErr about(PF_InData& in, PF_OutData& out);

}  // namespace quiltor
