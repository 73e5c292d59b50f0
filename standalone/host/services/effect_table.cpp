#include "standalone/host/services/effect_table.h"

#include <utility>

namespace quiltor::standalone {

AEGP_EffectRefH EffectTable::open(Panel& panel) {
  auto reference = std::make_unique<Reference>(Reference{&panel, currentCall()});
  const auto handle = reinterpret_cast<AEGP_EffectRefH>(reference.get());
  std::lock_guard lock(mutex_);
  references_.emplace(handle, std::move(reference));
  return handle;
}

Panel* EffectTable::panelOf(AEGP_EffectRefH effect) {
  std::lock_guard lock(mutex_);
  const auto found = references_.find(effect);
  if (found != references_.end()) return found->second->panel;
  findings_.record(FindingKind::ObjectUnknown, "what was passed as an effect is none, or was disposed before");
  return nullptr;
}

void EffectTable::dispose(AEGP_EffectRefH effect) {
  std::lock_guard lock(mutex_);
  references_.erase(effect);
}

void EffectTable::checkCall(const CallScope& call) {
  std::lock_guard lock(mutex_);
  for (auto entry = references_.begin(); entry != references_.end();) {
    if (entry->second->madeIn != &call) {
      ++entry;
      continue;
    }
    findings_.record(FindingKind::EffectNotDisposed, "a reference to the effect was left open");
    entry = references_.erase(entry);
  }
}

}  // namespace quiltor::standalone
