#pragma once

#include "hostapi/suites_aegp.h"

namespace quiltor::standalone {

// The effect's own streams, for the suites that have these calls among others.
A_Err getNewEffectForEffect(AEGP_PluginID plugin, PF_ProgPtr effect, AEGP_EffectRefH* reference);
A_Err getNewEffectStreamByIndex(AEGP_PluginID plugin, AEGP_EffectRefH reference, PF_ParamIndex index,
                                AEGP_StreamRefH* stream);

}  // namespace quiltor::standalone
