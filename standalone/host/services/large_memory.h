#pragma once

#include <cstddef>

namespace quiltor::standalone {

// From this size on memory is taken here.
inline constexpr std::size_t kLargeMemory = std::size_t{4} << 20;

// Memory that starts on a cache line, in large pages of the system where it gives them to everybody: they take a
// fraction of the time when they are touched first, and a frame's rows are found in fewer steps. Throws std::bad_alloc.
void* allocateLargeMemory(std::size_t bytes);
void freeLargeMemory(void* memory) noexcept;

}  // namespace quiltor::standalone
