#pragma once

#include <functional>
#include <string>

#include "hostapi/basic_types.h"

namespace quiltor::standalone {

// How a script went. All texts are UTF-8.
struct ScriptOutcome {
  A_Err error = 0;        // what the effect is told; 0 when the script ran to its end
  std::string result;     // the value of the last expression statement, as text
  std::string errorText;  // what went wrong, for effects that ask for it
};

// Runs a script that an effect hands over, as the effect hands it over: the text is UTF-8 and may be cut. Called on the
// host's main thread, in the middle of a call into the effect; returns when every dialog of the script is closed. May
// throw: the effect is told error 512, and whoever made the call gets the exception when the effect has returned.
using ScriptRunner = std::function<ScriptOutcome(const std::string& script)>;

}  // namespace quiltor::standalone
