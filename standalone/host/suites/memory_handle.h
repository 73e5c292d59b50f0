#pragma once

#include <string>

#include "hostapi/suites_aegp.h"

namespace quiltor::standalone {

// A handle of the memory suite with the text and the zero at its end; the effect has to free it. Null without memory.
[[nodiscard]] AEGP_MemHandle newMemory(const std::string& text);

}  // namespace quiltor::standalone
