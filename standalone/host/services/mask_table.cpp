#include "standalone/host/services/mask_table.h"

#include <string>
#include <utility>

namespace quiltor::standalone {

AEGP_MaskRefH MaskTable::open(AEGP_MaskIDVal id) {
  auto reference = std::make_unique<Reference>(Reference{id, currentCall()});
  const auto handle = reinterpret_cast<AEGP_MaskRefH>(reference.get());
  std::lock_guard lock(mutex_);
  references_.emplace(handle, std::move(reference));
  return handle;
}

std::optional<AEGP_MaskIDVal> MaskTable::idOf(AEGP_MaskRefH mask) {
  std::lock_guard lock(mutex_);
  const auto found = references_.find(mask);
  if (found != references_.end()) return found->second->id;
  findings_.record(FindingKind::ObjectUnknown, "what was passed as a mask is none, or was disposed before");
  return std::nullopt;
}

void MaskTable::dispose(AEGP_MaskRefH mask) {
  std::lock_guard lock(mutex_);
  references_.erase(mask);
}

void MaskTable::checkCall(const CallScope& call) {
  std::lock_guard lock(mutex_);
  for (auto entry = references_.begin(); entry != references_.end();) {
    if (entry->second->madeIn != &call) {
      ++entry;
      continue;
    }
    findings_.record(FindingKind::MaskNotDisposed, "mask " + std::to_string(entry->second->id) + " was left open");
    entry = references_.erase(entry);
  }
}

}  // namespace quiltor::standalone
