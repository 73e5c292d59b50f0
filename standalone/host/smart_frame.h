#pragma once

#include <map>
#include <memory>
#include <mutex>

#include "hostapi/smart_render.h"
#include "standalone/host/delivered_layer.h"
#include "standalone/host/param_values.h"
#include "standalone/host/services/host_state.h"

namespace quiltor::standalone {

// One frame of smart rendering: what pre-render checked out, and what render is given of it.
class SmartFrame {
 public:
  SmartFrame(HostState& host, const ParamValues& values, const World& layer);

  // --- Pre-render ---
  PF_Err checkOutLayer(PF_ParamIndex index, A_long id, const PF_LRect& request, A_long time, A_u_long timeScale,
                       PF_CheckoutResult& result);

  // --- Render ---
  void setOutput(World* output) { output_ = output; }
  PF_Err checkOutPixels(A_long id, PF_EffectWorld*& pixels);
  PF_Err checkInPixels(A_long id);
  PF_Err checkOutOutput(PF_EffectWorld*& output);
  // Records writes to the inputs.
  void checkEnd();

  [[nodiscard]] static PF_PreRenderCallbacks preRenderCallbacks();
  [[nodiscard]] static PF_SmartRenderCallbacks renderCallbacks();

 private:
  struct Entry {
    const World* source;  // null for no layer
    PF_LRect area;
    std::unique_ptr<DeliveredLayer> pixels;
    bool takenOut = false;
  };

  HostState& host_;
  const ParamValues& values_;
  const World& layer_;
  World* output_ = nullptr;
  std::mutex mutex_;
  std::map<A_long, Entry> entries_;
  World nothing_;
  bool inputTakenOut_ = false;
};

}  // namespace quiltor::standalone
