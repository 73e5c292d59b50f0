#pragma once

#include "bench/limits.h"

namespace quiltor::bench {

// How long `quiltor params` takes: the program's start, the module's, and its list of parameters. Throws
// std::runtime_error when it fails.
void limitProgramStart(const char* program, int times, Limits& limits);

}  // namespace quiltor::bench
