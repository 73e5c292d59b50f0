#include <bit>
#include <cstddef>
#include <string>

#include "standalone/host/services/host_state.h"
#include "standalone/host/suites/bad_argument.h"
#include "standalone/host/suites/effect_streams.h"
#include "standalone/host/suites/suite_table.h"
#include "standalone/host/suites/suite_tables.h"

namespace quiltor::standalone {
namespace {

A_Err disposeEffect(AEGP_EffectRefH reference) {
  HostState& host = hostState();
  const PF_Err refused = host.faults.refusal(HostCall::DisposeEffect, "AEGP_DisposeEffect");
  if (!host.effects.panelOf(reference)) return PF_Err_BAD_CALLBACK_PARAM;
  host.streams.checkEffect(reference);
  host.effects.dispose(reference);
  return refused;
}

// The parameter behind a stream; null, and recorded, when the stream is of something else.
PanelEntry* parameterOf(AEGP_StreamRefH stream, const char* function) {
  HostState& host = hostState();
  const auto source = host.streams.sourceOf(stream);
  if (!source) return nullptr;
  if (!source->parameter) badArgument(std::string(function) + " is for the streams of parameters here");
  return source->parameter;
}

A_Err getDynamicStreamFlags(AEGP_StreamRefH stream, AEGP_DynStreamFlags* flags) {
  HostState& host = hostState();
  if (const PF_Err refused = host.faults.refusal(HostCall::StreamFlag, "AEGP_GetDynamicStreamFlags")) return refused;
  if (!flags) return badArgument("AEGP_GetDynamicStreamFlags was called without a destination");
  const PanelEntry* parameter = parameterOf(stream, "AEGP_GetDynamicStreamFlags");
  if (!parameter) return PF_Err_BAD_CALLBACK_PARAM;
  *flags = 0;
  if (parameter->streamHidden) *flags |= AEGP_DynStreamFlag_HIDDEN;
  if (parameter->disabled()) *flags |= AEGP_DynStreamFlag_DISABLED;
  return PF_Err_NONE;
}

A_Err setDynamicStreamFlag(AEGP_StreamRefH stream, AEGP_DynStreamFlags flag, A_Boolean undoable, A_Boolean set) {
  HostState& host = hostState();
  if (const PF_Err refused = host.faults.refusal(HostCall::StreamFlag, "AEGP_SetDynamicStreamFlag")) return refused;
  PanelEntry* parameter = parameterOf(stream, "AEGP_SetDynamicStreamFlag");
  if (!parameter) return PF_Err_BAD_CALLBACK_PARAM;
  if (!std::has_single_bit(flag)) return badArgument("AEGP_SetDynamicStreamFlag sets one flag at a time");
  // Refused without a word: the real host is said to know the flag here and not to take it.
  if (flag == AEGP_DynStreamFlag_DISABLED) return PF_Err_BAD_CALLBACK_PARAM;
  if (flag != AEGP_DynStreamFlag_HIDDEN || undoable != 0) {
    return badArgument("AEGP_SetDynamicStreamFlag sets the hidden flag here, and not as a step to undo");
  }
  parameter->streamHidden = set != 0;
  return PF_Err_NONE;
}

A_Err setStreamName(AEGP_StreamRefH stream, const A_char* name) {
  HostState& host = hostState();
  if (const PF_Err refused = host.faults.refusal(HostCall::StreamName, "AEGP_SetStreamName")) return refused;
  PanelEntry* parameter = parameterOf(stream, "AEGP_SetStreamName");
  if (!parameter) return PF_Err_BAD_CALLBACK_PARAM;
  if (!name || std::char_traits<char>::length(name) > PF_MAX_EFFECT_PARAM_NAME_LEN) {
    return badArgument("AEGP_SetStreamName was called without a name or with one of more than 31 bytes");
  }
  parameter->name = name;
  return PF_Err_NONE;
}

AEGP_EffectSuite2 makeEffectSuite() {
  auto suite = tableOfUnimplementedSlots<AEGP_EffectSuite2>();
  suite.AEGP_DisposeEffect = &disposeEffect;
  return suite;
}

AEGP_DynamicStreamSuite2 makeDynamicStreamSuite() {
  auto suite = tableOfUnimplementedSlots<AEGP_DynamicStreamSuite2>();
  suite.AEGP_GetDynamicStreamFlags = &getDynamicStreamFlags;
  suite.AEGP_SetDynamicStreamFlag = &setDynamicStreamFlag;
  suite.AEGP_SetStreamName = &setStreamName;
  return suite;
}

}  // namespace

A_Err getNewEffectForEffect(AEGP_PluginID, PF_ProgPtr effect, AEGP_EffectRefH* reference) {
  HostState& host = hostState();
  if (const PF_Err refused = host.faults.refusal(HostCall::Effect, "AEGP_GetNewEffectForEffect")) return refused;
  const CallScope* call = host.callOf(effect);
  if (!call) return PF_Err_BAD_CALLBACK_PARAM;
  if (!reference) return badArgument("AEGP_GetNewEffectForEffect was called without a destination");
  if (!call->panel || call->panelAccess == PanelAccess::None) {
    host.findings.record(FindingKind::WrongSelector,
                         "an effect's own streams are for PF_Cmd_EVENT, PF_Cmd_USER_CHANGED_PARAM and "
                         "PF_Cmd_UPDATE_PARAMS_UI only");
    return PF_Err_BAD_CALLBACK_PARAM;
  }
  *reference = host.effects.open(*call->panel);
  return PF_Err_NONE;
}

A_Err getNewEffectStreamByIndex(AEGP_PluginID, AEGP_EffectRefH reference, PF_ParamIndex index,
                                AEGP_StreamRefH* stream) {
  HostState& host = hostState();
  const std::string what = "AEGP_GetNewEffectStreamByIndex " + std::to_string(index);
  if (const PF_Err refused = host.faults.refusal(HostCall::Stream, what)) return refused;
  Panel* panel = host.effects.panelOf(reference);
  if (!panel) return PF_Err_BAD_CALLBACK_PARAM;
  if (!stream || index < 0 || static_cast<std::size_t>(index) >= panel->size()) {
    return badArgument("AEGP_GetNewEffectStreamByIndex needs a destination and one of the " +
                       std::to_string(panel->size()) + " parameters, not " + std::to_string(index));
  }
  *stream = host.streams.open({.parameter = &(*panel)[static_cast<std::size_t>(index)], .effect = reference});
  return PF_Err_NONE;
}

const AEGP_EffectSuite2& effectSuite() {
  static const AEGP_EffectSuite2 suite = makeEffectSuite();
  return suite;
}

const AEGP_DynamicStreamSuite2& dynamicStreamSuite() {
  static const AEGP_DynamicStreamSuite2 suite = makeDynamicStreamSuite();
  return suite;
}

}  // namespace quiltor::standalone
