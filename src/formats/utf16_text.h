#pragma once

#include <cstdint>
#include <span>
#include <string>

namespace quiltor {

// UTF-16 in native byte order as UTF-8, up to the first zero unit. Half of a surrogate pair becomes U+FFFD.
std::string utf16ToUtf8(std::span<const uint16_t> units);

}  // namespace quiltor
