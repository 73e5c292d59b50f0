#pragma once

#include <cstdint>
#include <string_view>

namespace quiltor {

// The number that a text begins with, blanks before it skipped and anything after it ignored; 0 when there is none. The
// decimal point is a point whatever locale the host runs in. A whole number that does not fit becomes the nearest one
// that does; a floating one becomes 0.
int32_t readInteger(std::string_view text);
float readFloat(std::string_view text);

}  // namespace quiltor
