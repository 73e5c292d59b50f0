#pragma once

#include <map>
#include <memory>
#include <mutex>
#include <optional>

#include "hostapi/suites_aegp.h"
#include "standalone/host/services/call_scope.h"
#include "standalone/host/services/findings.h"

namespace quiltor::standalone {

// The references to masks that effects hold; two to one mask are two. Thread-safe.
class MaskTable {
 public:
  explicit MaskTable(Findings& findings) : findings_(findings) {}

  AEGP_MaskRefH open(AEGP_MaskIDVal id);
  // The mask's identifier; nothing, and recorded, for what is no mask.
  std::optional<AEGP_MaskIDVal> idOf(AEGP_MaskRefH mask);
  void dispose(AEGP_MaskRefH mask);

  // Records what the call left, and closes it.
  void checkCall(const CallScope& call);

 private:
  struct Reference {
    AEGP_MaskIDVal id;
    const CallScope* madeIn;
  };

  std::mutex mutex_;
  Findings& findings_;
  std::map<AEGP_MaskRefH, std::unique_ptr<Reference>> references_;
};

}  // namespace quiltor::standalone
