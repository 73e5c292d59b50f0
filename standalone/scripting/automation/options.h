#pragma once

#include "standalone/scripting/automation/automation_script.h"
#include "standalone/scripting/automation/automation_state.h"

namespace quiltor::standalone {

// `option NAME VALUE`: turns what is not known of hosts, or what they may refuse. Throws AutomationError for a name or
// value that does not exist.
void setOption(const AutomationStep& step, AutomationState& state);

}  // namespace quiltor::standalone
