#pragma once

#include <cstdint>

namespace quiltor {

// How the pattern continues beyond its own rectangle; the values are those of the menu, counted from 0.
enum class TileMode : int32_t { Single = 0, Tiled = 1, Mirrored = 2 };

}  // namespace quiltor
