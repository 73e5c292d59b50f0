#pragma once

#include "hostapi/effect.h"

namespace quiltor::standalone {

// The callbacks of the input record. Each finds its call through the effect reference.
[[nodiscard]] PF_InteractCallbacks interactionCallbacks();

}  // namespace quiltor::standalone
