#pragma once

#include <optional>

#include "standalone/host/services/host_options.h"

namespace quiltor::standalone {

// The mask of that identifier among the layer's, as it is at a layer time in seconds; nothing when there is none.
[[nodiscard]] std::optional<Mask> layerMask(const HostOptions& options, int32_t id, double seconds = 0);

}  // namespace quiltor::standalone
