#pragma once

#include "standalone/scripting/automation/automation_script.h"
#include "standalone/scripting/automation/automation_state.h"
#include "standalone/scripting/elements/window_element.h"

namespace quiltor::standalone {

// `expect CONTROL STATE`, which needs a dialog, as against `expect alert "TEXT"`, `expect no alert`, `expect closed`
// and `expect result "TEXT"`.
[[nodiscard]] bool isAboutControl(const AutomationStep& step);

// Throws AutomationError, with what is the case, when the expectation does not hold.
void expect(const AutomationStep& step, AutomationState& state, WindowElement* window);

}  // namespace quiltor::standalone
