#pragma once

#include <cstdint>

namespace quiltor {

// In pixels of the whole desktop; negative on a screen to the left of or above the first.
struct ScreenPoint {
  int32_t x = 0;
  int32_t y = 0;
};

// Where the mouse is. The corner of the first screen when the system does not tell.
ScreenPoint cursorPosition() noexcept;

}  // namespace quiltor
