#include <cstdint>
#include <cstring>
#include <limits>

#include "standalone/host/services/host_state.h"
#include "standalone/host/suites/bad_argument.h"
#include "standalone/host/suites/memory_handle.h"
#include "standalone/host/suites/suite_table.h"
#include "standalone/host/suites/suite_tables.h"

namespace quiltor::standalone {
namespace {

// The effect must not look behind a handle of this suite, so what it holds leads nowhere.
constexpr std::uintptr_t kDisguise = std::uintptr_t{0x5157} << 48;

AEGP_MemHandle disguised(PF_Handle handle) {
  if (!handle) return nullptr;
  return reinterpret_cast<AEGP_MemHandle>(reinterpret_cast<std::uintptr_t>(handle) ^ kDisguise);
}

PF_Handle handleBehind(AEGP_MemHandle mem) {
  if (!mem) return nullptr;
  return reinterpret_cast<PF_Handle>(reinterpret_cast<std::uintptr_t>(mem) ^ kDisguise);
}

A_Err lockMemHandle(AEGP_MemHandle mem, void** pointer) {
  HostState& host = hostState();
  if (const PF_Err refused = host.faults.refusal(HostCall::LockMemory, "AEGP_LockMemHandle")) return refused;
  if (!pointer) return badArgument("AEGP_LockMemHandle was called without a destination");
  *pointer = host.memory.lock(handleBehind(mem));
  return *pointer ? PF_Err_NONE : PF_Err_BAD_CALLBACK_PARAM;
}

A_Err unlockMemHandle(AEGP_MemHandle mem) {
  HostState& host = hostState();
  const PF_Err refused = host.faults.refusal(HostCall::UnlockMemory, "AEGP_UnlockMemHandle");
  const bool alive = host.memory.alive(handleBehind(mem));
  host.memory.unlock(handleBehind(mem));
  return alive ? refused : PF_Err_BAD_CALLBACK_PARAM;
}

A_Err freeMemHandle(AEGP_MemHandle mem) {
  HostState& host = hostState();
  const PF_Err refused = host.faults.refusal(HostCall::FreeMemory, "AEGP_FreeMemHandle");
  const bool alive = host.memory.alive(handleBehind(mem));
  host.memory.dispose(handleBehind(mem));
  return alive ? refused : PF_Err_BAD_CALLBACK_PARAM;
}

A_Err getMemHandleSize(AEGP_MemHandle mem, AEGP_MemSize* size) {
  HostState& host = hostState();
  if (!size) return badArgument("AEGP_GetMemHandleSize was called without a destination");
  const bool alive = host.memory.alive(handleBehind(mem));
  *size = static_cast<AEGP_MemSize>(host.memory.size(handleBehind(mem)));
  return alive ? PF_Err_NONE : PF_Err_BAD_CALLBACK_PARAM;
}

AEGP_MemorySuite1 makeSuite() {
  auto suite = tableOfUnimplementedSlots<AEGP_MemorySuite1>();
  suite.AEGP_FreeMemHandle = &freeMemHandle;
  suite.AEGP_LockMemHandle = &lockMemHandle;
  suite.AEGP_UnlockMemHandle = &unlockMemHandle;
  suite.AEGP_GetMemHandleSize = &getMemHandleSize;
  return suite;
}

}  // namespace

AEGP_MemHandle newMemory(const std::string& text) {
  if (text.size() >= std::numeric_limits<AEGP_MemSize>::max()) return nullptr;
  HostState& host = hostState();
  const PF_Handle handle = host.memory.make(text.size() + 1);
  if (!handle) return nullptr;
  // Not counted as a lock: the host writes before the effect knows of the handle.
  std::memcpy(*handle, text.c_str(), text.size() + 1);
  return disguised(handle);
}

const AEGP_MemorySuite1& memorySuite() {
  static const AEGP_MemorySuite1 suite = makeSuite();
  return suite;
}

}  // namespace quiltor::standalone
