#pragma once

#include <cstddef>
#include <cstdint>

namespace quiltor {

inline constexpr size_t kCacheLineBytes = 64;

// What is larger leaves the caches before it is read again, and is better written past them.
inline constexpr int64_t kStreamedBytes = int64_t{6} << 20;

// Makes what this thread has written past the caches visible to those that wait for it.
void finishStreaming();

}  // namespace quiltor
