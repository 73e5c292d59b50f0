#include <charconv>
#include <cstdlib>
#include <cstring>

#include "platform/cursor.h"

namespace quiltor {

// No call tells it on every desktop, so a host that wants it known says it in the environment: "x,y".
ScreenPoint cursorPosition() noexcept {
  const char* text = std::getenv("QUILTOR_CURSOR");
  if (!text) return {};
  const char* const end = text + std::strlen(text);
  ScreenPoint point;
  const auto x = std::from_chars(text, end, point.x);
  if (x.ec != std::errc() || x.ptr == end || *x.ptr != ',') return {};
  const auto y = std::from_chars(x.ptr + 1, end, point.y);
  return y.ec == std::errc() && y.ptr == end ? point : ScreenPoint{};
}

}  // namespace quiltor
