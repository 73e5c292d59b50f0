#pragma once

#include <cstdint>

namespace quiltor {

// The most bytes that the pixels of one picture may take. No pattern or photograph comes near it; a damaged or hostile
// header does, and the host that shares its memory with us must not pay for that.
inline constexpr int64_t kMostPixelBytes = int64_t{1} << 30;

}  // namespace quiltor
