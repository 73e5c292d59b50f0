#pragma once

#include "host/host_error.h"
#include "hostapi/effect.h"

namespace quiltor {

// Routes one call of the host to its handler and returns what the handler returns. Selectors without a handler, and
// numbers that are none, return 0 and touch nothing. Lets the handlers' exceptions through. No lock of its own: render
// selectors come on any thread, several at once.
HostErr dispatch(A_long selector, PF_InData* in, PF_OutData* out, PF_ParamDef** params, PF_EffectWorld* output,
                 void* extra);

}  // namespace quiltor
