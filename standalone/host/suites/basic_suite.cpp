#include "standalone/host/suites/basic_suite.h"

#include <cstdlib>
#include <cstring>

#include "standalone/host/services/host_state.h"
#include "standalone/host/suites/suite_catalogue.h"
#include "standalone/host/suites/suite_table.h"
#include "standalone/host/suites/suite_tables.h"
#include "standalone/host/suites/util_callbacks.h"

namespace quiltor::standalone {
namespace {

SPErr acquireSuite(const char* name, int32_t version, const void** suite) {
  HostState& host = hostState();
  if (!name || !suite) {
    host.findings.record(FindingKind::BadArgument, "AcquireSuite was called with a null name or destination");
    return kSPBadParameterError;
  }
  const SuiteId id{name, version};
  const bool refused = host.faults.strikes(HostCall::AcquireSuite, "AcquireSuite " + nameOf(id));
  const void* table = refused ? nullptr : findSuite(id);
  host.trace("suite " + nameOf(id) + (table ? "" : " refused"));
  if (!table) return kSPSuiteNotFoundError;
  host.suites.acquired(id);
  *suite = table;
  return kSPNoError;
}

SPErr releaseSuite(const char* name, int32_t version) {
  HostState& host = hostState();
  if (!name) {
    host.findings.record(FindingKind::BadArgument, "ReleaseSuite was called with a null name");
    return kSPBadParameterError;
  }
  const SuiteId id{name, version};
  const bool strikes = host.faults.strikes(HostCall::ReleaseSuite, "ReleaseSuite " + nameOf(id));
  const bool released = host.suites.released(id);
  return strikes || !released ? kSPSuiteAlreadyReleasedError : kSPNoError;
}

SPBoolean isEqual(const char* token1, const char* token2) {
  return token1 && token2 && std::strcmp(token1, token2) == 0 ? 1 : 0;
}

SPBasicSuite makeBasicSuite() {
  auto suite = tableOfUnimplementedSlots<SPBasicSuite>();
  suite.AcquireSuite = &acquireSuite;
  suite.ReleaseSuite = &releaseSuite;
  suite.IsEqual = &isEqual;
  return suite;
}

PF_UtilCallbacks makeUtilCallbacks(bool offersGeneric) {
  auto table = tableOfUnimplementedSlots<PF_UtilCallbacks>();
  const PF_HandleSuite1& handles = handleSuite();
  table.host_new_handle = handles.host_new_handle;
  table.host_lock_handle = handles.host_lock_handle;
  table.host_unlock_handle = handles.host_unlock_handle;
  table.host_dispose_handle = handles.host_dispose_handle;
  table.host_get_handle_size = handles.host_get_handle_size;
  table.iterate_generic = offersGeneric ? iterateGenericFunction() : nullptr;
  return table;
}

}  // namespace

int unimplementedSlot() {
  hostState().findings.record(FindingKind::UnimplementedSlot, "a host function was called that this host lacks");
  return PF_Err_BAD_CALLBACK_PARAM;
}

SPBasicSuite& basicSuite() {
  static SPBasicSuite suite = makeBasicSuite();
  return suite;
}

PF_UtilCallbacks& utilCallbacks() {
  static PF_UtilCallbacks whole = makeUtilCallbacks(true);
  static PF_UtilCallbacks withoutGeneric = makeUtilCallbacks(false);
  return hostState().options.offerIterateGeneric ? whole : withoutGeneric;
}

}  // namespace quiltor::standalone
