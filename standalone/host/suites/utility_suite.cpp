#include "standalone/host/services/host_state.h"
#include "standalone/host/suites/suite_table.h"
#include "standalone/host/suites/suite_tables.h"

namespace quiltor::standalone {
namespace {

A_Err registerWithAegp(AEGP_GlobalRefcon, const A_char* name, AEGP_PluginID* id) {
  HostState& host = hostState();
  if (host.faults.strikes(HostCall::RegisterEffect)) return PF_Err_BAD_CALLBACK_PARAM;
  if (!name || !id) {
    host.findings.record(FindingKind::BadArgument, "AEGP_RegisterWithAEGP was called without a name or destination");
    return PF_Err_BAD_CALLBACK_PARAM;
  }
  host.registeredEffectNames.emplace_back(name);
  *id = static_cast<AEGP_PluginID>(host.registeredEffectNames.size());
  return PF_Err_NONE;
}

A_Err isScriptingAvailable(A_Boolean* available) {
  if (available) *available = 0;
  return PF_Err_NONE;
}

AEGP_UtilitySuite3 makeSuite7() {
  auto suite = tableOfUnimplementedSlots<AEGP_UtilitySuite3>();
  suite.AEGP_RegisterWithAEGP = &registerWithAegp;
  return suite;
}

AEGP_UtilitySuite5 makeSuite11() {
  auto suite = tableOfUnimplementedSlots<AEGP_UtilitySuite5>();
  // In this version registration is slot 8.
  suite.unused0_25[8] = reinterpret_cast<void*>(&registerWithAegp);
  suite.AEGP_IsScriptingAvailable = &isScriptingAvailable;
  return suite;
}

}  // namespace

const AEGP_UtilitySuite3& utilitySuite7() {
  static const AEGP_UtilitySuite3 suite = makeSuite7();
  return suite;
}

const AEGP_UtilitySuite5& utilitySuite11() {
  static const AEGP_UtilitySuite5 suite = makeSuite11();
  return suite;
}

}  // namespace quiltor::standalone
