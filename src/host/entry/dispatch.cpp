#include "host/entry/dispatch.h"

#include <array>

#include "description/effect_description.h"
#include "description/params_ui.h"
#include "description/register_params.h"
#include "host/entry/global_handlers.h"
#include "host/entry/sequence_handlers.h"
#include "render/render_handlers.h"
#include "ui/library_dialogs.h"
#include "ui/pattern_control.h"

namespace quiltor {
namespace {

struct HostCall {
  PF_InData& in;
  PF_OutData& out;
  PF_ParamDef** params;
  PF_EffectWorld* output;
  void* extra;

  // The record that the selector brings along.
  template <class Extra>
  Extra& extraAs() const {
    if (!extra) throwHostError(PF_Err_BAD_CALLBACK_PARAM);
    return *static_cast<Extra*>(extra);
  }
};

using Handler = HostErr (*)(const HostCall&);

constexpr size_t kSelectors = PF_Cmd_GET_FLATTENED_SEQUENCE_DATA + 1;

// By selector; null where there is nothing to do.
constexpr std::array<Handler, kSelectors> kHandlers = [] {
  std::array<Handler, kSelectors> table{};
  table[PF_Cmd_ABOUT] = [](const HostCall& call) { return about(call.in, call.out); };
  table[PF_Cmd_GLOBAL_SETUP] = [](const HostCall& call) { return globalSetup(call.in, call.out); };
  table[PF_Cmd_GLOBAL_SETDOWN] = [](const HostCall& call) { return globalSetdown(call.in); };
  table[PF_Cmd_PARAMS_SETUP] = [](const HostCall& call) {
    return registerParameters(effectDescription(), call.in, call.out);
  };
  table[PF_Cmd_SEQUENCE_SETUP] = [](const HostCall& call) { return sequenceSetup(call.in, call.out); };
  table[PF_Cmd_SEQUENCE_RESETUP] = [](const HostCall& call) { return sequenceResetup(call.in, call.out); };
  table[PF_Cmd_SEQUENCE_FLATTEN] = [](const HostCall& call) {
    return sequenceFlatten(call.in, call.out, LiveData::Replace);
  };
  table[PF_Cmd_SEQUENCE_SETDOWN] = [](const HostCall& call) { return sequenceSetdown(call.in, call.out); };
  table[PF_Cmd_DO_DIALOG] = [](const HostCall& call) { return settingsDialog(call.in); };
  table[PF_Cmd_EVENT] = [](const HostCall& call) {
    return patternControlEvent(call.in, call.out, call.params, call.extraAs<PF_EventExtra>());
  };
  table[PF_Cmd_RENDER] = [](const HostCall& call) {
    if (!call.params || !call.output) throwHostError(PF_Err_BAD_CALLBACK_PARAM);
    return render(call.in, call.out, call.params, call.output);
  };
  table[PF_Cmd_USER_CHANGED_PARAM] = table[PF_Cmd_UPDATE_PARAMS_UI] = [](const HostCall& call) {
    if (!call.params) throwHostError(PF_Err_BAD_CALLBACK_PARAM);
    return paramsUiChanged(effectDescription(), call.in, call.params);
  };
  table[PF_Cmd_SMART_PRE_RENDER] = [](const HostCall& call) {
    return smartPreRender(call.in, call.extraAs<PF_PreRenderExtra>());
  };
  table[PF_Cmd_SMART_RENDER] = [](const HostCall& call) {
    return smartRender(call.in, call.out, call.extraAs<PF_SmartRenderExtra>());
  };
  table[PF_Cmd_GET_FLATTENED_SEQUENCE_DATA] = [](const HostCall& call) {
    return sequenceFlatten(call.in, call.out, LiveData::Keep);
  };
  return table;
}();

}  // namespace

HostErr dispatch(A_long selector, PF_InData* in, PF_OutData* out, PF_ParamDef** params, PF_EffectWorld* output,
                 void* extra) {
  if (selector < 0 || static_cast<size_t>(selector) >= kHandlers.size()) return PF_Err_NONE;
  const Handler handler = kHandlers[static_cast<size_t>(selector)];
  if (!handler) return PF_Err_NONE;
  if (!in || !out) throwHostError(PF_Err_BAD_CALLBACK_PARAM);
  return handler({*in, *out, params, output, extra});
}

}  // namespace quiltor
