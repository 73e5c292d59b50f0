#include <cstddef>

#include "standalone/host/services/host_state.h"
#include "standalone/host/suites/bad_argument.h"
#include "standalone/host/suites/suite_table.h"
#include "standalone/host/suites/suite_tables.h"

namespace quiltor::standalone {
namespace {

PF_Err setOptionsButtonName(PF_ProgPtr effect, const A_char* name) {
  HostState& host = hostState();
  if (const PF_Err refused = host.faults.refusal(HostCall::SetOptionsButton, "PF_SetOptionsButtonName")) return refused;
  if (!host.callOf(effect)) return PF_Err_BAD_CALLBACK_PARAM;
  if (!name) {
    host.findings.record(FindingKind::BadArgument, "PF_SetOptionsButtonName was called without a name");
    return PF_Err_BAD_CALLBACK_PARAM;
  }
  host.optionsButtonName = name;
  return PF_Err_NONE;
}

PF_Err updateParamUi(PF_ProgPtr effect, PF_ParamIndex index, const PF_ParamDef* definition) {
  HostState& host = hostState();
  const std::string what = "PF_UpdateParamUI " + std::to_string(index);
  if (const PF_Err code = host.faults.refusal(HostCall::UpdateParamUi, what)) return code;
  const CallScope* call = host.callOf(effect);
  if (!call) return PF_Err_BAD_CALLBACK_PARAM;
  if (!call->panel || call->panelAccess != PanelAccess::Definitions) {
    host.findings.record(FindingKind::WrongSelector,
                         "PF_UpdateParamUI is for PF_Cmd_USER_CHANGED_PARAM and PF_Cmd_UPDATE_PARAMS_UI only");
    return PF_Err_BAD_CALLBACK_PARAM;
  }
  if (index < 1 || static_cast<std::size_t>(index) >= call->panel->size() || !definition) {
    return badArgument("PF_UpdateParamUI was called for what is no parameter of the panel, or without a definition");
  }
  PanelEntry& entry = (*call->panel)[static_cast<std::size_t>(index)];
  if (definition->param_type != entry.type || definition->uu.change_flags != 0) {
    return badArgument("PF_UpdateParamUI was to change the type or the value of \"" + entry.name + "\"");
  }
  entry.updated = *definition;
  entry.uiFlags = definition->ui_flags;
  return PF_Err_NONE;
}

PF_Err refreshAllWindows() {
  HostState& host = hostState();
  if (const PF_Err refused = host.faults.refusal(HostCall::RefreshWindows, "PF_RefreshAllWindows")) return refused;
  ++host.refreshAllWindowsCount;
  return PF_Err_NONE;
}

PF_EffectUISuite1 makeEffectUiSuite() {
  auto suite = tableOfUnimplementedSlots<PF_EffectUISuite1>();
  suite.PF_SetOptionsButtonName = &setOptionsButtonName;
  return suite;
}

PF_ParamUtilsSuite3 makeParamUtilsSuite() {
  auto suite = tableOfUnimplementedSlots<PF_ParamUtilsSuite3>();
  suite.PF_UpdateParamUI = &updateParamUi;
  return suite;
}

PF_AdvAppSuite1 makeAdvAppSuite() {
  auto suite = tableOfUnimplementedSlots<PF_AdvAppSuite1>();
  suite.PF_RefreshAllWindows = &refreshAllWindows;
  return suite;
}

}  // namespace

const PF_EffectUISuite1& effectUiSuite() {
  static const PF_EffectUISuite1 suite = makeEffectUiSuite();
  return suite;
}

const PF_ParamUtilsSuite3& paramUtilsSuite() {
  static const PF_ParamUtilsSuite3 suite = makeParamUtilsSuite();
  return suite;
}

const PF_AdvAppSuite1& advAppSuite() {
  static const PF_AdvAppSuite1 suite = makeAdvAppSuite();
  return suite;
}

}  // namespace quiltor::standalone
