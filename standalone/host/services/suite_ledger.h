#pragma once

#include <mutex>

#include "standalone/host/services/call_scope.h"
#include "standalone/host/services/findings.h"

namespace quiltor::standalone {

// Counts acquires and releases per suite and version, over all and per call. Thread-safe.
class SuiteLedger {
 public:
  explicit SuiteLedger(Findings& findings) : findings_(findings) {}

  void acquired(const SuiteId& suite);
  // False when nothing is left to release; that is recorded.
  bool released(const SuiteId& suite);
  // Records what the call acquired and did not release.
  void checkCall(const CallScope& call);
  [[nodiscard]] int balance() const;

 private:
  mutable std::mutex mutex_;
  Findings& findings_;
  std::map<SuiteId, int> counts_;
};

}  // namespace quiltor::standalone
