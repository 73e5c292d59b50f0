#pragma once

#include <cstddef>
#include <memory>
#include <mutex>
#include <string>
#include <unordered_map>
#include <vector>

#include "standalone/host/services/cache_line_memory.h"
#include "standalone/host/services/call_scope.h"
#include "standalone/host/services/findings.h"

namespace quiltor::standalone {

// The effect's memory handles, with lock counts and guard bytes on both sides of the data. Cells outlive their data, so
// that a handle used after its disposal is told from one that never was. Thread-safe.
class HandleTable {
 public:
  explicit HandleTable(Findings& findings) : findings_(findings) {}

  // From now on memory that was given back is given out again as it is, as hosts do that keep pools of it.
  void recycle() { recycling_ = true; }

  // The content is not zero. Null when there is no memory.
  PF_Handle make(A_HandleSize size);
  void* lock(PF_Handle handle);
  void unlock(PF_Handle handle);
  void dispose(PF_Handle handle);
  [[nodiscard]] A_HandleSize size(PF_Handle handle);

  // For the host itself: nothing is recorded.
  [[nodiscard]] bool alive(PF_Handle handle) const;
  [[nodiscard]] std::vector<unsigned char> bytes(PF_Handle handle) const;
  [[nodiscard]] std::size_t liveCount() const;
  // "a handle of 8 bytes made in PF_Cmd_ABOUT".
  [[nodiscard]] std::string name(PF_Handle handle) const;
  void drop(PF_Handle handle);

  // After a call: locks that it left, and guard bytes of all live handles.
  void checkCall(const CallScope& call);
  // The final count for one effect; what is left is disposed.
  void reportLeaks(const void* effect);

 private:
  struct Block {
    void* cell = nullptr;  // what a handle points at; null after the disposal
    A_HandleSize size = 0;
    CacheLineMemory memory;
    int locks = 0;
    std::string madeIn;
    const void* effect = nullptr;
  };

  Block* find(PF_Handle handle, const char* action);
  [[nodiscard]] const Block* findLive(PF_Handle handle) const;
  void checkGuards(Block& block);
  static std::string nameOf(const Block& block);
  void release(Block& block);
  CacheLineMemory takeMemory(std::size_t size);

  mutable std::mutex mutex_;
  Findings& findings_;
  std::unordered_map<PF_Handle, std::unique_ptr<Block>> blocks_;
  bool recycling_ = false;
  std::vector<CacheLineMemory> recycled_;
};

}  // namespace quiltor::standalone
