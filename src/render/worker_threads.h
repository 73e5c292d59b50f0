#pragma once

#include <cstdint>
#include <functional>

namespace quiltor {

inline constexpr int kWorkers = 32;

// Splits rows 0 .. rows - 1 between 32 threads, runs work(first, end) on each and joins them all. A worker may get no
// rows. The first exception that a worker threw, in the order of the rows, is thrown again after the last join.
void runOnWorkers(int32_t rows, const std::function<void(int32_t first, int32_t end)>& work);

}  // namespace quiltor
