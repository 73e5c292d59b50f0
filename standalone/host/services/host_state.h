#pragma once

#include <atomic>
#include <exception>
#include <mutex>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "hostapi/suites_aegp.h"
#include "standalone/host/services/drawing.h"
#include "standalone/host/services/effect_table.h"
#include "standalone/host/services/fault_plan.h"
#include "standalone/host/services/findings.h"
#include "standalone/host/services/handle_table.h"
#include "standalone/host/services/host_options.h"
#include "standalone/host/services/mask_table.h"
#include "standalone/host/services/path_table.h"
#include "standalone/host/services/stream_table.h"
#include "standalone/host/services/suite_ledger.h"
#include "standalone/host/services/world_pool.h"

namespace quiltor::standalone {

// What all host functions of a process work on. The one that lives is found by them, since they get no context.
struct HostState {
  explicit HostState(HostOptions chosen);
  ~HostState();
  HostState(const HostState&) = delete;
  HostState& operator=(const HostState&) = delete;

  HostOptions options;
  FaultPlan faults;
  Findings findings;
  HandleTable handles{findings};
  HandleTable memory{findings};  // what the memory suite knows; no handle of one is one of the other
  SuiteLedger suites{findings};
  WorldPool worlds{findings};
  StreamTable streams{findings};
  EffectTable effects{findings};
  MaskTable masks{findings};
  PathTable paths{findings};

  // What effects asked for. Written on the main thread, but for the count of abort calls.
  int refreshAllWindowsCount = 0;
  std::string optionsButtonName;
  std::vector<std::string> registeredEffectNames;
  std::vector<PrPixelFormat> declaredPixelFormats;
  std::atomic<int> abortCallCount = 0;

  // What the embedder's script runner threw; it may not pass through the effect, so the call's end throws it again.
  std::exception_ptr scriptFailure;

  [[nodiscard]] bool isVideoEditor() const { return options.appId == kAppId_PremierePro; }
  void trace(std::string_view line);

  void begin(CallScope& call);
  // Runs every check that a call's end calls for.
  void end(CallScope& call);
  // The live call that the reference stands for; null, and recorded, when there is none.
  CallScope* callOf(PF_ProgPtr reference);

 private:
  std::mutex mutex_;
  std::mutex traceMutex_;
  std::set<const CallScope*> calls_;
};

// The live host's; only for functions that effects call while a host lives.
[[nodiscard]] HostState& hostState();

}  // namespace quiltor::standalone
