#include "platform/environment_override.h"
#include "platform/testing/cursor_place.h"

namespace quiltor {

struct CursorPlace::Before {
  EnvironmentOverride said;
};

CursorPlace::CursorPlace(int x, int y)
    : before_(new Before{{"QUILTOR_CURSOR", std::to_string(x) + "," + std::to_string(y)}}) {}

CursorPlace::~CursorPlace() = default;

}  // namespace quiltor
