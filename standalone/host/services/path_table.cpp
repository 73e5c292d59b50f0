#include "standalone/host/services/path_table.h"

#include <algorithm>
#include <string>
#include <utility>

namespace quiltor::standalone {

PF_PathOutlinePtr PathTable::checkOut(const CallScope& call, PF_PathID id, std::optional<Outline> outline) {
  // Effects get the address and nothing to write to.
  std::unique_ptr<Outline> kept = outline ? std::make_unique<Outline>(std::move(*outline)) : nullptr;
  const auto path = reinterpret_cast<PF_PathOutlinePtr>(kept.get());
  std::lock_guard lock(mutex_);
  checkOuts_.push_back({&call, id, std::move(kept)});
  return path;
}

bool PathTable::checkIn(const CallScope& call, PF_PathID id, PF_PathOutlinePtr path) {
  std::lock_guard lock(mutex_);
  const auto found = std::find_if(checkOuts_.begin(), checkOuts_.end(), [&](const CheckOut& checkOut) {
    return checkOut.call == &call && checkOut.id == id && checkOut.is(path);
  });
  if (found == checkOuts_.end()) {
    findings_.record(FindingKind::PathCheckedInTwice,
                     "path " + std::to_string(id) + " was checked in and is not checked out, or not any more");
    return false;
  }
  checkOuts_.erase(found);
  return true;
}

std::optional<Outline> PathTable::outlineOf(PF_PathOutlinePtr path) {
  std::lock_guard lock(mutex_);
  const auto found = std::find_if(checkOuts_.begin(), checkOuts_.end(),
                                  [&](const CheckOut& checkOut) { return path && checkOut.is(path); });
  if (found != checkOuts_.end()) return *found->outline;
  findings_.record(FindingKind::ObjectUnknown, "what was passed as a path is none, or was checked in before");
  return std::nullopt;
}

void PathTable::checkCall(const CallScope& call) {
  std::lock_guard lock(mutex_);
  std::erase_if(checkOuts_, [&](const CheckOut& checkOut) {
    if (checkOut.call != &call) return false;
    findings_.record(FindingKind::PathNotCheckedIn,
                     "path " + std::to_string(checkOut.id) + " was checked out and not checked in");
    return true;
  });
}

}  // namespace quiltor::standalone
