#pragma once

#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <vector>

#include "standalone/host/call.h"
#include "standalone/host/delivered_layer.h"
#include "standalone/host/effect_module.h"
#include "standalone/host/param_values.h"
#include "standalone/host/registration.h"
#include "standalone/host/services/host_state.h"
#include "standalone/host/smart_frame.h"

namespace quiltor::standalone {

struct CallHandles {
  PF_Handle global = nullptr;
  PF_Handle sequence = nullptr;
  PF_Handle frame = nullptr;
};

// One call into the effect with everything that the host's functions need to serve it.
class CallContext : public CallScope {
 public:
  CallContext(HostState& host, A_long selector, const void* effect);
  ~CallContext() override;

  A_long number;
  HostState& host;

  // --- What the call is about; set before `perform` ---
  CallHandles handles;
  A_long paramCount = 0;
  const ParamValues* values = nullptr;   // without them parameters cannot be checked out
  const World* layer = nullptr;          // the effect's layer in a frame
  DeliveredLayer* input = nullptr;       // the same as the effect gets it
  Registration* registration = nullptr;  // in parameter setup
  SmartFrame* smart = nullptr;           // in the smart selectors

  // Calls the effect and runs the checks of a call's end.
  CallResult perform(EntryPoint entryPoint, const Call& call);

  // After a set-down: a handle that the effect could not dispose because a host call was made to fail is not its leak.
  void forgive(PF_Handle handle, const CallResult& result);

  // --- Parameter check-outs ---
  PF_Err checkOut(PF_ParamIndex index, A_long time, A_u_long timeScale, PF_ParamDef& destination);
  PF_Err checkIn(PF_ParamDef& record);

 private:
  struct CheckOut {
    PF_ParamIndex index;
    const PF_ParamDef* destination;
    std::unique_ptr<DeliveredLayer> pixels;
  };

  PF_InData makeInData();
  [[nodiscard]] LayerSize bufferSize() const;
  void fillLayer(PF_ParamIndex index, A_long time, A_u_long timeScale, CheckOut& checkOut, PF_ParamDef& destination);
  void checkEnd();

  std::mutex mutex_;
  std::vector<CheckOut> checkOuts_;
  PF_ParamDef** params_ = nullptr;
};

}  // namespace quiltor::standalone
