#pragma once

#include <memory>
#include <mutex>
#include <optional>
#include <vector>

#include "hostapi/params.h"
#include "hostapi/suites_pf.h"
#include "standalone/host/masks/mask.h"
#include "standalone/host/services/call_scope.h"
#include "standalone/host/services/findings.h"

namespace quiltor::standalone {

// The paths that effects have checked out. Thread-safe.
class PathTable {
 public:
  explicit PathTable(Findings& findings) : findings_(findings) {}

  // Without an outline the path is null; that check-out counts like any other.
  PF_PathOutlinePtr checkOut(const CallScope& call, PF_PathID id, std::optional<Outline> outline);
  // False, and recorded, when the call has no such path.
  bool checkIn(const CallScope& call, PF_PathID id, PF_PathOutlinePtr path);
  // Nothing, and recorded, for what is no path or is checked in.
  std::optional<Outline> outlineOf(PF_PathOutlinePtr path);

  // Records what the call left, and checks it in.
  void checkCall(const CallScope& call);

 private:
  struct CheckOut {
    const CallScope* call;
    PF_PathID id;
    std::unique_ptr<const Outline> outline;  // its address is the path

    [[nodiscard]] bool is(PF_PathOutlinePtr path) const { return reinterpret_cast<const void*>(path) == outline.get(); }
  };

  std::mutex mutex_;
  Findings& findings_;
  std::vector<CheckOut> checkOuts_;
};

}  // namespace quiltor::standalone
