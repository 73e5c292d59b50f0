#pragma once

#include <cstddef>

namespace quiltor {

// What the stack of a helping thread holds at least.
inline constexpr std::size_t kHelperStackBytes = 256 * 1024;

// Runs work(argument) on the calling thread and beside it on up to `helpers` threads that are kept for it, and returns
// when all that have begun are at the end. The work is one that its threads share: whoever comes takes the next piece,
// so that it is done however few come. It throws nothing.
void shareWork(int helpers, void (*work)(void* argument) noexcept, void* argument);

}  // namespace quiltor
