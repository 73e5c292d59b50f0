#include "standalone/host/services/handle_table.h"

#include <algorithm>
#include <new>
#include <stdexcept>

namespace quiltor::standalone {
namespace {

constexpr std::size_t kGuardBytes = 64;
// Sizes that no machine has are refused here: some allocators end the process for them.
constexpr A_HandleSize kLargestHandle = A_HandleSize{1} << 36;
constexpr unsigned char kFresh = 0xCD;

unsigned char guardByte(std::size_t index) { return static_cast<unsigned char>(0xA5 ^ (index * 29)); }

}  // namespace

std::string HandleTable::nameOf(const Block& block) {
  return "a handle of " + std::to_string(block.size) + " bytes made in " + block.madeIn;
}

PF_Handle HandleTable::make(A_HandleSize size) {
  if (size > kLargestHandle) return nullptr;
  auto block = std::make_unique<Block>();
  try {
    block->memory = takeMemory(static_cast<std::size_t>(size) + 2 * kGuardBytes);
  } catch (const std::bad_alloc&) {
    return nullptr;
  }
  block->size = size;
  block->madeIn = currentSelector();
  if (const CallScope* call = currentCall()) block->effect = call->effect();
  unsigned char* data = block->memory.data() + kGuardBytes;
  for (std::size_t i = 0; i < kGuardBytes; ++i) {
    block->memory[i] = guardByte(i);
    data[size + i] = guardByte(i);
  }
  block->cell = data;
  std::lock_guard lock(mutex_);
  const PF_Handle handle = &block->cell;
  blocks_.emplace(handle, std::move(block));
  return handle;
}

CacheLineMemory HandleTable::takeMemory(std::size_t size) {
  {
    std::lock_guard lock(mutex_);
    const auto fitting = std::find_if(recycled_.begin(), recycled_.end(),
                                      [size](const CacheLineMemory& memory) { return memory.size() == size; });
    if (fitting != recycled_.end()) {
      CacheLineMemory memory = std::move(*fitting);
      recycled_.erase(fitting);
      return memory;
    }
  }
  return CacheLineMemory(size, kFresh);
}

HandleTable::Block* HandleTable::find(PF_Handle handle, const char* action) {
  if (!handle) {
    findings_.record(FindingKind::BadArgument, std::string("a null handle was to be ") + action);
    return nullptr;
  }
  const auto found = blocks_.find(handle);
  if (found == blocks_.end()) {
    findings_.record(FindingKind::HandleUnknown, std::string("what is no handle of the host was to be ") + action);
    return nullptr;
  }
  if (!found->second->cell) {
    findings_.record(FindingKind::HandleUsedAfterDispose,
                     nameOf(*found->second) + " was to be " + action + " after its disposal");
    return nullptr;
  }
  return found->second.get();
}

void* HandleTable::lock(PF_Handle handle) {
  std::lock_guard lock(mutex_);
  Block* block = find(handle, "locked");
  if (!block) return nullptr;
  ++block->locks;
  if (CallScope* call = currentCall()) ++call->locks[handle];
  return block->cell;
}

void HandleTable::unlock(PF_Handle handle) {
  std::lock_guard lock(mutex_);
  Block* block = find(handle, "unlocked");
  if (!block) return;
  CallScope* call = currentCall();
  if (block->locks < 1 || (call && call->locks[handle] < 1)) {
    findings_.record(FindingKind::HandleUnlockedTooOften, nameOf(*block) + " was unlocked without being locked");
    return;
  }
  --block->locks;
  if (call) --call->locks[handle];
}

void HandleTable::dispose(PF_Handle handle) {
  std::lock_guard lock(mutex_);
  if (const auto found = blocks_.find(handle); found != blocks_.end() && !found->second->cell) {
    findings_.record(FindingKind::HandleDisposedTwice, nameOf(*found->second) + " was disposed before");
    return;
  }
  Block* block = find(handle, "disposed");
  if (!block) return;
  if (block->locks > 0) {
    findings_.record(FindingKind::HandleDisposedWhileLocked,
                     nameOf(*block) + " was disposed with " + std::to_string(block->locks) + " locks on it");
  }
  checkGuards(*block);
  release(*block);
}

A_HandleSize HandleTable::size(PF_Handle handle) {
  std::lock_guard lock(mutex_);
  const Block* block = find(handle, "measured");
  return block ? block->size : 0;
}

const HandleTable::Block* HandleTable::findLive(PF_Handle handle) const {
  const auto found = blocks_.find(handle);
  return found != blocks_.end() && found->second->cell ? found->second.get() : nullptr;
}

bool HandleTable::alive(PF_Handle handle) const {
  std::lock_guard lock(mutex_);
  return findLive(handle) != nullptr;
}

std::vector<unsigned char> HandleTable::bytes(PF_Handle handle) const {
  std::lock_guard lock(mutex_);
  const Block* block = findLive(handle);
  if (!block) return {};
  const unsigned char* data = block->memory.data() + kGuardBytes;
  return {data, data + block->size};
}

std::string HandleTable::name(PF_Handle handle) const {
  std::lock_guard lock(mutex_);
  const Block* block = findLive(handle);
  return block ? nameOf(*block) : "what is no handle";
}

std::size_t HandleTable::liveCount() const {
  std::lock_guard lock(mutex_);
  return static_cast<std::size_t>(
      std::count_if(blocks_.begin(), blocks_.end(), [](const auto& entry) { return entry.second->cell != nullptr; }));
}

void HandleTable::drop(PF_Handle handle) {
  std::lock_guard lock(mutex_);
  if (const auto found = blocks_.find(handle); found != blocks_.end()) release(*found->second);
}

void HandleTable::release(Block& block) {
  block.cell = nullptr;
  block.locks = 0;
  if (recycling_) recycled_.push_back(std::move(block.memory));
  CacheLineMemory().swap(block.memory);
}

void HandleTable::checkGuards(Block& block) {
  if (!block.cell) return;
  unsigned char* before = block.memory.data();
  unsigned char* after = before + kGuardBytes + block.size;
  bool whole = true;
  for (std::size_t i = 0; i < kGuardBytes; ++i) {
    whole = whole && before[i] == guardByte(i) && after[i] == guardByte(i);
    before[i] = after[i] = guardByte(i);  // reported once
  }
  if (!whole) findings_.record(FindingKind::HandleOverrun, nameOf(block) + " was written outside its bytes");
}

void HandleTable::checkCall(const CallScope& call) {
  std::lock_guard lock(mutex_);
  for (const auto& [handle, count] : call.locks) {
    const Block* block = findLive(handle);
    if (count > 0 && block && block->locks > 0) {
      findings_.record(FindingKind::HandleLeftLocked,
                       nameOf(*block) + " was left with " + std::to_string(count) + " locks");
    }
  }
  for (auto& [handle, block] : blocks_) checkGuards(*block);
}

void HandleTable::reportLeaks(const void* effect) {
  std::lock_guard lock(mutex_);
  for (auto& [handle, block] : blocks_) {
    if (!block->cell || (block->effect && block->effect != effect)) continue;
    findings_.record(FindingKind::HandleLeaked, nameOf(*block) + " was never disposed");
    release(*block);
  }
}

}  // namespace quiltor::standalone
