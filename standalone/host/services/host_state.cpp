#include "standalone/host/services/host_state.h"

#include <stdexcept>
#include <utility>

namespace quiltor::standalone {
namespace {

std::atomic<HostState*> live = nullptr;

}  // namespace

HostState::HostState(HostOptions chosen) : options(std::move(chosen)) {
  HostState* none = nullptr;
  if (!live.compare_exchange_strong(none, this)) throw std::logic_error("only one host lives at a time in a process");
  if (!options.strict) handles.recycle();
}

HostState::~HostState() { live = nullptr; }

HostState& hostState() { return *live; }

void HostState::trace(std::string_view line) {
  if (!options.trace) return;
  std::lock_guard lock(traceMutex_);
  options.trace(line);
}

void HostState::begin(CallScope& call) {
  trace("call " + call.selector());
  std::lock_guard lock(mutex_);
  calls_.insert(&call);
  abortCallCount = 0;
}

void HostState::end(CallScope& call) {
  {
    std::lock_guard lock(mutex_);
    calls_.erase(&call);
  }
  suites.checkCall(call);
  handles.checkCall(call);
  memory.checkCall(call);
  worlds.checkCall(call);
  streams.checkCall(call);
  effects.checkCall(call);
  masks.checkCall(call);
  if (call.drawing) call.drawing->checkEnd();
  paths.checkCall(call);
}

CallScope* HostState::callOf(PF_ProgPtr reference) {
  std::lock_guard lock(mutex_);
  auto* call = reinterpret_cast<CallScope*>(reference);
  if (calls_.contains(call)) return call;
  findings.record(FindingKind::ObjectUnknown, "an effect reference was passed that belongs to no call of this moment");
  return nullptr;
}

}  // namespace quiltor::standalone
