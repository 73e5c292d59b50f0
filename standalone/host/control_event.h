#pragma once

#include <memory>

#include "hostapi/custom_ui.h"
#include "standalone/host/call.h"
#include "standalone/host/services/drawing.h"

namespace quiltor::standalone {

// An event in a custom control, as the host tells the effect of it. Places are pixels of the pane.
struct ControlEvent {
  PF_EventType type = PF_Event_DO_CLICK;
  PF_ParamIndex index = 0;
  PF_EffectArea area = PF_EA_CONTROL;
  PF_LRect frame = {80, 10, 130, 60};  // of the area
  PF_Point point = {90, 20};           // of a click
  PF_EventInFlags inFlags = 0;
};

struct EventResult {
  CallResult call;
  PF_EventOutFlags outFlags = 0;
  std::unique_ptr<Drawing> drawing;  // of a draw event; null otherwise

  [[nodiscard]] bool succeeded() const { return call.succeeded(); }
  [[nodiscard]] bool handled() const { return (outFlags & PF_EO_HANDLED_EVENT) != 0; }
};

}  // namespace quiltor::standalone
