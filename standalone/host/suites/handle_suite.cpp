#include "standalone/host/services/host_state.h"
#include "standalone/host/suites/suite_table.h"
#include "standalone/host/suites/suite_tables.h"

namespace quiltor::standalone {
namespace {

PF_Handle newHandle(A_HandleSize size) {
  HostState& host = hostState();
  return host.faults.strikes(HostCall::NewHandle, "host_new_handle of " + std::to_string(size) + " bytes")
             ? nullptr
             : host.handles.make(size);
}

void* lockHandle(PF_Handle handle) {
  HostState& host = hostState();
  return host.faults.strikes(HostCall::LockHandle, "host_lock_handle of " + host.handles.name(handle))
             ? nullptr
             : host.handles.lock(handle);
}

void unlockHandle(PF_Handle handle) { hostState().handles.unlock(handle); }
void disposeHandle(PF_Handle handle) { hostState().handles.dispose(handle); }
A_HandleSize handleSize(PF_Handle handle) { return hostState().handles.size(handle); }

PF_HandleSuite1 makeSuite() {
  auto suite = tableOfUnimplementedSlots<PF_HandleSuite1>();
  suite.host_new_handle = &newHandle;
  suite.host_lock_handle = &lockHandle;
  suite.host_unlock_handle = &unlockHandle;
  suite.host_dispose_handle = &disposeHandle;
  suite.host_get_handle_size = &handleSize;
  return suite;
}

}  // namespace

const PF_HandleSuite1& handleSuite() {
  static const PF_HandleSuite1 suite = makeSuite();
  return suite;
}

}  // namespace quiltor::standalone
