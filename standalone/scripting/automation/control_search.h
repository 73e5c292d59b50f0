#pragma once

#include <QString>

#include "standalone/scripting/automation/automation_script.h"
#include "standalone/scripting/elements/element.h"

namespace quiltor::standalone {

// The control that a selector means. Throws AutomationError when there is none, with what is there.
[[nodiscard]] Element& findControl(Element& window, const ControlSelector& selector, const std::string& raw);

}  // namespace quiltor::standalone
