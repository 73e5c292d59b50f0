#pragma once

#include <cstdint>

namespace quiltor {

// The number that the system knows this process by while it runs.
int64_t processNumber() noexcept;

// Whether a process of that number runs. The number of one that ended may come back later.
bool processRuns(int64_t number) noexcept;

// Keeps the module that this code is part of in memory until the process ends, so that a thread that still runs in it
// outlives the host's unloading. False when the system refuses.
bool keepModuleLoaded() noexcept;

}  // namespace quiltor
