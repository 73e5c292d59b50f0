#pragma once

#include "hostapi/effect.h"

namespace quiltor::standalone {

// Acquire and release, counted. Callable from any thread.
[[nodiscard]] SPBasicSuite& basicSuite();

// The older way to the handle functions and to iterate_generic. The host has no other utilities.
[[nodiscard]] PF_UtilCallbacks& utilCallbacks();

}  // namespace quiltor::standalone
