#include <windows.h>

#include "platform/testing/cursor_place.h"

namespace quiltor {

struct CursorPlace::Before {
  POINT point{};
};

CursorPlace::CursorPlace(int x, int y) : before_(std::make_unique<Before>()) {
  GetCursorPos(&before_->point);
  SetCursorPos(x, y);
}

CursorPlace::~CursorPlace() { SetCursorPos(before_->point.x, before_->point.y); }

}  // namespace quiltor
