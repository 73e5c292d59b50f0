#include <windows.h>

#include "platform/cursor.h"

namespace quiltor {

ScreenPoint cursorPosition() noexcept {
  POINT point;
  // Without a desktop the system knows none.
  if (!GetCursorPos(&point)) return {};
  return {point.x, point.y};
}

}  // namespace quiltor
