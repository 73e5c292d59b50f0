#pragma once

#include <cstdint>
#include <functional>

namespace quiltor {

inline constexpr int kWorkers = 32;

// Splits rows 0 .. rows - 1 into 32 parts, lets up to 32 threads and the caller take one part after the other for
// work(first, end), and waits for them all. A part may have no rows. The first exception that a worker threw, in the
// order of the rows, is thrown again at the end.
void runOnWorkers(int32_t rows, const std::function<void(int32_t first, int32_t end)>& work);

}  // namespace quiltor
