#include "host/entry/dispatch.h"
#include "hostapi/export.h"

// The host's only way in.
QUILTOR_EXPORT PF_Err EntryPointFunc(A_long selector, PF_InData* in, PF_OutData* out, PF_ParamDef** params,
                                     PF_EffectWorld* output, void* extra) {
  return quiltor::hostBoundary([&] { return quiltor::dispatch(selector, in, out, params, output, extra); });
}
