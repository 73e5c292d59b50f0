#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <utility>

#include "platform/cursor.h"
#include "platform/environment_override.h"

namespace quiltor {
namespace {

std::pair<int32_t, int32_t> positionWith(const std::optional<std::string>& variable) {
  const EnvironmentOverride said("QUILTOR_CURSOR", variable);
  const ScreenPoint point = cursorPosition();
  return {point.x, point.y};
}

TEST(CursorVariable, MayBeLeftOfTheFirstScreen) { EXPECT_EQ(positionWith("-1920,-3"), std::pair(-1920, -3)); }

TEST(CursorVariable, IsTheCornerWhenNobodySetItOrNobodyUnderstandsIt) {
  for (const char* text : {"", "640", "640,", ",480", "640;480", "640,480px", "99999999999,1", "1,99999999999"}) {
    EXPECT_EQ(positionWith(text), std::pair(0, 0)) << text;
  }
  EXPECT_EQ(positionWith(std::nullopt), std::pair(0, 0));
}

}  // namespace
}  // namespace quiltor
