#pragma once

#include <map>
#include <memory>
#include <mutex>

#include "hostapi/suites_aegp.h"
#include "standalone/host/services/call_scope.h"
#include "standalone/host/services/findings.h"
#include "standalone/host/services/panel.h"

namespace quiltor::standalone {

// The references to their own instance that effects hold. Thread-safe.
class EffectTable {
 public:
  explicit EffectTable(Findings& findings) : findings_(findings) {}

  AEGP_EffectRefH open(Panel& panel);
  // The instance's panel; null, and recorded, for what is no reference to an effect.
  Panel* panelOf(AEGP_EffectRefH effect);
  void dispose(AEGP_EffectRefH effect);

  // Records what the call left, and closes it.
  void checkCall(const CallScope& call);

 private:
  struct Reference {
    Panel* panel;
    const CallScope* madeIn;
  };

  std::mutex mutex_;
  Findings& findings_;
  std::map<AEGP_EffectRefH, std::unique_ptr<Reference>> references_;
};

}  // namespace quiltor::standalone
