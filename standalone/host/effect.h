#pragma once

#include <string>
#include <vector>

#include "hostapi/params.h"
#include "standalone/host/call.h"
#include "standalone/host/effect_module.h"
#include "standalone/host/host.h"
#include "standalone/host/parameter.h"

namespace quiltor::standalone {

// An effect loaded into the host: global data and registered parameters. Its calls belong on the host's main thread.
class Effect {
 public:
  // Calls nothing yet.
  Effect(Host& host, const EffectModule& module);
  // Shuts down when that was not done.
  ~Effect();
  Effect(const Effect&) = delete;
  Effect& operator=(const Effect&) = delete;

  CallResult globalSetup();
  CallResult paramsSetup();
  // Both; the second is not called when the first fails.
  CallResult setUp();
  CallResult about();
  // Global setdown when global setup was called, whatever it returned; then counts what is left: handles, worlds,
  // streams. Harmless when repeated.
  CallResult shutDown();

  // Any selector without an instance. The handles that the effect stores are kept as after the typed calls.
  CallResult call(const Call& call);

  // Entry 0 is the input layer. Filled by paramsSetup.
  [[nodiscard]] const std::vector<Parameter>& parameters() const { return parameters_; }
  [[nodiscard]] bool customUiRegistered() const { return customUiRegistered_; }
  [[nodiscard]] const PF_CustomUIInfo& customUi() const { return customUi_; }
  // From global setup.
  [[nodiscard]] A_u_long version() const { return version_; }
  [[nodiscard]] PF_OutFlags outFlags() const { return outFlags_; }
  [[nodiscard]] PF_OutFlags2 outFlags2() const { return outFlags2_; }
  [[nodiscard]] PF_Handle globalData() const { return globalData_; }

  [[nodiscard]] Host& host() { return host_; }
  [[nodiscard]] EntryPoint entryPoint() const { return entryPoint_; }

 private:
  CallResult registerParameters(const Call& call);

  Host& host_;
  EntryPoint entryPoint_;
  std::vector<Parameter> parameters_;
  PF_CustomUIInfo customUi_{};
  bool customUiRegistered_ = false;
  bool globalSetupCalled_ = false;
  bool down_ = false;
  A_u_long version_ = 0;
  PF_OutFlags outFlags_ = 0;
  PF_OutFlags2 outFlags2_ = 0;
  PF_Handle globalData_ = nullptr;
};

}  // namespace quiltor::standalone
