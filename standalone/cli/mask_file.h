#pragma once

#include <filesystem>
#include <vector>

#include "standalone/host/masks/mask.h"

namespace quiltor::standalone {

// Reads the masks of a layer from a file such as
//
//   {"masks": [{"id": 2, "feather": [10, 4], "inverted": false,
//               "vertices": [{"at": [40, 20], "in": [-15, 0], "out": [15, 0]}, {"at": [80, 90]}, {"at": [10, 70]}]}]}
//
// Places are pixels of the layer, tangents are offsets from their vertex. "feather" may be one number for both axes;
// everything but "masks", "id", "vertices" and "at" may be left out. Throws CommandFailure.
[[nodiscard]] std::vector<Mask> readMasks(const std::filesystem::path& path);

}  // namespace quiltor::standalone
