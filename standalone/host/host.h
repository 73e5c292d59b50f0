#pragma once

#include <memory>
#include <string>
#include <vector>

#include "standalone/host/services/fault_plan.h"
#include "standalone/host/services/findings.h"
#include "standalone/host/services/host_options.h"

namespace quiltor::standalone {

struct HostState;

// Plays the host's role strictly. The host's functions carry no context, so only one host lives at a time in a process;
// a second one throws std::logic_error. The thread that made it is the host's main thread. Effects and instances must
// be gone before their host.
//
//   Host host;
//   EffectModule module("Quiltor.so");
//   Effect effect(host, module);
//   effect.setUp();
//   {
//     Instance instance(effect);
//     instance.setUp();
//     instance.setNumber(7, 50);
//     RenderResult picture = instance.renderSmart({.input = &world});
//   }
//   effect.shutDown();
//   EXPECT_TRUE(host.findings().empty()) << host.findings().text();
class Host {
 public:
  explicit Host(HostOptions options = {});
  ~Host();
  Host(const Host&) = delete;
  Host& operator=(const Host&) = delete;

  [[nodiscard]] HostOptions& options();
  [[nodiscard]] FaultPlan& faults();
  [[nodiscard]] Findings& findings();

  // What the effect asked for outside the records it returned.
  [[nodiscard]] int refreshAllWindowsCount() const;
  [[nodiscard]] const std::string& optionsButtonName() const;
  [[nodiscard]] const std::vector<std::string>& registeredEffectNames() const;
  [[nodiscard]] const std::vector<PrPixelFormat>& declaredPixelFormats() const;
  // Calls of abort and progress since the last call into the effect began.
  [[nodiscard]] int abortCallCount() const;
  // Live objects of the effect at this moment.
  [[nodiscard]] std::size_t liveHandleCount() const;
  // Acquires minus releases over all suites.
  [[nodiscard]] int suiteBalance() const;

  // For effects and instances.
  [[nodiscard]] HostState& state() { return *state_; }

 private:
  std::unique_ptr<HostState> state_;
};

}  // namespace quiltor::standalone
