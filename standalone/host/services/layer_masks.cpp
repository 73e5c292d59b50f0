#include "standalone/host/services/layer_masks.h"

#include <algorithm>

namespace quiltor::standalone {

std::optional<Mask> layerMask(const HostOptions& options, int32_t id, double seconds) {
  const auto found =
      std::find_if(options.masks.begin(), options.masks.end(), [id](const Mask& mask) { return mask.id == id; });
  if (found == options.masks.end()) return std::nullopt;
  return options.maskAt ? options.maskAt(*found, seconds) : *found;
}

}  // namespace quiltor::standalone
