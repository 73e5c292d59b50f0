#pragma once

#include <cstddef>
#include <optional>
#include <string>

#include "hostapi/effect.h"

namespace quiltor {

// A longer script loses its end.
inline constexpr size_t kMostScriptBytes = 64999;

// Has the host run a script in UTF-8 and gives its result, when every dialog that it opened is closed. Nothing when no
// script ran: in the video editor, or when the host refused. Throws 516 without the host's suites. Main thread only; no
// handle may be locked meanwhile, because the host goes on working.
std::optional<std::string> runScript(const PF_InData& in, const std::string& script);

}  // namespace quiltor
