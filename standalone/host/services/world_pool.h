#pragma once

#include <map>
#include <memory>
#include <mutex>

#include "standalone/host/services/call_scope.h"
#include "standalone/host/services/findings.h"
#include "standalone/host/services/world.h"

namespace quiltor::standalone {

// The worlds that effects make for themselves. Thread-safe.
class WorldPool {
 public:
  explicit WorldPool(Findings& findings) : findings_(findings) {}

  // Fills the caller's record. False when there is no memory.
  bool make(WorldFormat format, int width, int height, bool clear, PF_EffectWorld& record);
  // Clears the caller's record.
  void dispose(PF_EffectWorld& record);

  // Records the worlds that the call made and left, each of them once.
  void checkCall(const CallScope& call);
  [[nodiscard]] std::size_t liveCount() const;

 private:
  struct Entry {
    World world;
    const CallScope* madeIn;  // null once the call is over
  };

  mutable std::mutex mutex_;
  Findings& findings_;
  std::map<const void*, Entry> worlds_;  // by the address of the first pixel
};

}  // namespace quiltor::standalone
