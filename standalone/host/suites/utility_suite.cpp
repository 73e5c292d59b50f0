#include <exception>
#include <string>

#include "standalone/host/services/host_state.h"
#include "standalone/host/suites/bad_argument.h"
#include "standalone/host/suites/memory_handle.h"
#include "standalone/host/suites/suite_table.h"
#include "standalone/host/suites/suite_tables.h"

namespace quiltor::standalone {
namespace {

A_Err registerWithAegp(AEGP_GlobalRefcon, const A_char* name, AEGP_PluginID* id) {
  HostState& host = hostState();
  if (const PF_Err refused = host.faults.refusal(HostCall::RegisterEffect, "AEGP_RegisterWithAEGP")) return refused;
  if (!name || !id) {
    host.findings.record(FindingKind::BadArgument, "AEGP_RegisterWithAEGP was called without a name or destination");
    return PF_Err_BAD_CALLBACK_PARAM;
  }
  host.registeredEffectNames.emplace_back(name);
  *id = static_cast<AEGP_PluginID>(host.registeredEffectNames.size());
  return PF_Err_NONE;
}

A_Err isScriptingAvailable(A_Boolean* available) {
  if (!available) return badArgument("AEGP_IsScriptingAvailable was called without a destination");
  *available = hostState().options.runScript ? 1 : 0;
  return PF_Err_NONE;
}

// The embedder's exception may not pass through the effect.
ScriptOutcome runScript(HostState& host, const std::string& script) {
  try {
    return host.options.runScript(script);
  } catch (...) {
    host.scriptFailure = std::current_exception();
    return {.error = PF_Err_INTERNAL_STRUCT_DAMAGED, .result = "", .errorText = ""};
  }
}

A_Err executeScript(AEGP_PluginID, const A_char* script, A_Boolean platformEncoding, AEGP_MemHandle* result,
                    AEGP_MemHandle* error) {
  HostState& host = hostState();
  if (const PF_Err refused = host.faults.refusal(HostCall::ExecuteScript, "AEGP_ExecuteScript")) return refused;
  if (!script || platformEncoding != 0) {
    return badArgument("AEGP_ExecuteScript was called without a script or with one that is not UTF-8");
  }
  if (!host.options.runScript) return PF_Err_BAD_CALLBACK_PARAM;
  const std::string text = script;
  host.trace("script of " + std::to_string(text.size()) + " bytes");
  if (result) *result = nullptr;
  if (error) *error = nullptr;
  const ScriptOutcome outcome = runScript(host, text);
  if (error && !outcome.errorText.empty()) *error = newMemory(outcome.errorText);
  if (outcome.error != PF_Err_NONE) return outcome.error;
  const bool noHandle = outcome.result.empty() && host.options.noScriptResult == NoScriptResult::NullHandle;
  if (result && !noHandle) *result = newMemory(outcome.result);
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
  suite.AEGP_ExecuteScript = &executeScript;
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
