#pragma once

#include "standalone/scripting/automation/automation_script.h"
#include "standalone/scripting/automation/automation_state.h"
#include "standalone/scripting/elements/window_element.h"

namespace quiltor::standalone {

// When a step can be done.
enum class StepTime {
  AtOnce,      // before any dialog too
  InDialog,    // while one is open
  Afterwards,  // in a dialog or when the script has ended
};

// Throws AutomationError for a verb that does not exist.
[[nodiscard]] StepTime stepTime(const AutomationStep& step);

// Does a step. `window` is null while no dialog is open. Throws AutomationError for what cannot be done.
void performStep(const AutomationStep& step, AutomationState& state, WindowElement* window);

// Writes what the window shows as a PNG. Throws AutomationError.
void savePicture(const WindowElement& window, const std::string& file);

}  // namespace quiltor::standalone
