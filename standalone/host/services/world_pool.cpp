#include "standalone/host/services/world_pool.h"

#include <new>
#include <string>
#include <utility>

namespace quiltor::standalone {
namespace {

std::string sizeOf(const World& world) {
  return "a world of " + std::to_string(world.width()) + " x " + std::to_string(world.height());
}

}  // namespace

bool WorldPool::make(WorldFormat format, int width, int height, bool clear, PF_EffectWorld& record) {
  try {
    World world(format, width, height, {.paddingBytes = 12});
    if (clear) world.clear();
    record = world.record();
    std::lock_guard lock(mutex_);
    worlds_.emplace(record.data, Entry{std::move(world), currentCall()});
  } catch (const std::bad_alloc&) {
    return false;
  }
  return true;
}

void WorldPool::dispose(PF_EffectWorld& record) {
  std::lock_guard lock(mutex_);
  const auto found = worlds_.find(record.data);
  if (found == worlds_.end()) {
    findings_.record(FindingKind::WorldDisposedTwice, "a world was disposed that is not alive");
    return;
  }
  if (const auto damage = found->second.world.damage()) {
    findings_.record(FindingKind::WorldOverrun,
                     sizeOf(found->second.world) + " was written outside its pixels: " + *damage);
  }
  worlds_.erase(found);
  record = {};
}

void WorldPool::checkCall(const CallScope& call) {
  std::lock_guard lock(mutex_);
  for (auto& [data, entry] : worlds_) {
    if (entry.madeIn != &call) continue;
    findings_.record(FindingKind::WorldNotDisposed, sizeOf(entry.world) + " was made and not disposed");
    entry.madeIn = nullptr;
  }
}

std::size_t WorldPool::liveCount() const {
  std::lock_guard lock(mutex_);
  return worlds_.size();
}

}  // namespace quiltor::standalone
