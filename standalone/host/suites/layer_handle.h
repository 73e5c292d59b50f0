#pragma once

#include "hostapi/suites_aegp.h"

namespace quiltor::standalone {

// The handle of the effect's layer, the only one there is.
[[nodiscard]] AEGP_LayerH layerHandle();

// Whether it is that; recorded when not. `asked` says what was asked of it.
bool requireLayer(AEGP_LayerH layer, const char* asked);

}  // namespace quiltor::standalone
