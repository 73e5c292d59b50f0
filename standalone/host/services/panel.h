#pragma once

#include <optional>
#include <string>
#include <vector>

#include "hostapi/params.h"

namespace quiltor::standalone {

// What the host's panel knows of one parameter of an instance.
struct PanelEntry {
  std::string name;             // as registered, until the effect gives its stream another
  PF_ParamUIFlags uiFlags = 0;  // likewise
  bool streamHidden = false;    // the hidden flag of the parameter's stream
  PF_ParamType type = PF_Param_LAYER;
  std::optional<PF_ParamDef> updated;  // the definition that the effect last gave the panel

  [[nodiscard]] bool hidden() const { return streamHidden || (uiFlags & PF_PUI_INVISIBLE) != 0; }
  [[nodiscard]] bool disabled() const { return (uiFlags & PF_PUI_DISABLED) != 0; }
};

// By the parameters' index; entry 0 is the input layer. Main thread only.
using Panel = std::vector<PanelEntry>;

// What a call into the effect may do to the panel.
enum class PanelAccess {
  None,
  Streams,      // hide and name streams: events
  Definitions,  // and give new definitions: a user's change and the refresh of the panel
};

}  // namespace quiltor::standalone
