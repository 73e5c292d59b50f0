#include "platform/cursor.h"

#include <gtest/gtest.h>

#include "platform/testing/cursor_place.h"

namespace quiltor {
namespace {

TEST(CursorPosition, IsWhereTheMouseIs) {
  for (const int32_t x : {0, 17, 250}) {
    const CursorPlace mouse(x, 2 * x);
    const ScreenPoint point = cursorPosition();
    EXPECT_EQ(point.x, x);
    EXPECT_EQ(point.y, 2 * x);
  }
}

}  // namespace
}  // namespace quiltor
