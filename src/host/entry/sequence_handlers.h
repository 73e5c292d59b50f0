#pragma once

#include "host/host_error.h"
#include "hostapi/effect.h"

namespace quiltor {

// The handlers of the selectors that make, save and destroy an instance's data. Resetup may come on any thread, the
// others come on the main thread. They return the host's code or throw it; after a failure the instance's handle is as
// it was.

// PF_Cmd_SEQUENCE_SETUP: a new instance.
HostErr sequenceSetup(PF_InData& in, PF_OutData& out);

// PF_Cmd_SEQUENCE_RESETUP: live data from the flat form, whose handle is disposed; live data is handed back; without
// data the instance is set up afresh.
HostErr sequenceResetup(PF_InData& in, PF_OutData& out);

enum class LiveData { Replace, Keep };

// PF_Cmd_SEQUENCE_FLATTEN replaces the live data by its flat form; PF_Cmd_GET_FLATTENED_SEQUENCE_DATA keeps it and
// hands out a copy in the flat form.
HostErr sequenceFlatten(PF_InData& in, PF_OutData& out, LiveData live);

// PF_Cmd_SEQUENCE_SETDOWN: destroys the data, live or flat.
HostErr sequenceSetdown(PF_InData& in, PF_OutData& out);

}  // namespace quiltor
