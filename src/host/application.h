#pragma once

#include "hostapi/effect.h"

namespace quiltor {

// The video editor loads the effect too and offers less than the compositing host.
inline bool isVideoEditor(const PF_InData& in) { return in.appl_id == kAppId_PremierePro; }

}  // namespace quiltor
