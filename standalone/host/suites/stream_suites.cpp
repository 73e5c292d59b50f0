#include "standalone/host/services/host_state.h"
#include "standalone/host/services/layer_masks.h"
#include "standalone/host/suites/bad_argument.h"
#include "standalone/host/suites/effect_streams.h"
#include "standalone/host/suites/layer_handle.h"
#include "standalone/host/suites/suite_table.h"
#include "standalone/host/suites/suite_tables.h"

namespace quiltor::standalone {
namespace {

A_Err getNewLayerStream(AEGP_PluginID, AEGP_LayerH layer, AEGP_LayerStream code, AEGP_StreamRefH* stream) {
  HostState& host = hostState();
  const std::string what = "AEGP_GetNewLayerStream " + std::to_string(code);
  if (const PF_Err refused = host.faults.refusal(HostCall::Stream, what)) return refused;
  if (!requireLayer(layer, "a stream")) return PF_Err_BAD_CALLBACK_PARAM;
  if (!stream || code < AEGP_LayerStream_ANCHORPOINT || code > AEGP_LayerStream_ROTATION) {
    return badArgument("AEGP_GetNewLayerStream offers anchor, position, scale and rotation, and needs a destination");
  }
  *stream = host.streams.open({.code = code});
  return PF_Err_NONE;
}

A_Err getNewMaskStream(AEGP_PluginID, AEGP_MaskRefH mask, AEGP_MaskStream code, AEGP_StreamRefH* stream) {
  HostState& host = hostState();
  const std::string what = "AEGP_GetNewMaskStream " + std::to_string(code);
  if (const PF_Err refused = host.faults.refusal(HostCall::Stream, what)) return refused;
  const auto id = host.masks.idOf(mask);
  if (!id) return PF_Err_BAD_CALLBACK_PARAM;
  if (!stream || code < AEGP_MaskStream_OPACITY || code > AEGP_MaskStream_EXPANSION) {
    return badArgument(
        "AEGP_GetNewMaskStream offers opacity, feather and expansion, not the outline, and needs a destination");
  }
  *stream = host.streams.open({.code = code, .maskId = *id, .mask = mask});
  return PF_Err_NONE;
}

A_Err disposeStream(AEGP_StreamRefH stream) {
  HostState& host = hostState();
  const PF_Err refused = host.faults.refusal(HostCall::DisposeStream, "AEGP_DisposeStream");
  return host.streams.dispose(stream) ? refused : PF_Err_BAD_CALLBACK_PARAM;
}

AEGP_ThreeDVal transformValue(const HostOptions& options, AEGP_LayerStream code, double seconds) {
  const LayerTransform at = options.transformAt ? options.transformAt(seconds) : options.transform;
  switch (code) {
    case AEGP_LayerStream_ANCHORPOINT:
      return {at.anchorX, at.anchorY, 0};
    case AEGP_LayerStream_POSITION:
      return {at.positionX, at.positionY, 0};
    case AEGP_LayerStream_SCALE:
      return {at.scaleX, at.scaleY, 100};
    default:
      return {at.rotation, 0, 0};
  }
}

// In full-resolution pixels and percent. The masks of this host are opaque and drawn where their paths lie.
AEGP_ThreeDVal maskValue(const HostOptions& options, const StreamSource& source, double seconds) {
  if (source.code == AEGP_MaskStream_OPACITY) return {100, 0, 0};
  const Mask mask = layerMask(options, source.maskId.value_or(0), seconds).value_or(Mask{});
  if (source.code == AEGP_MaskStream_FEATHER) return {mask.featherX, mask.featherY, 0};
  return {};
}

// Both suites' value records lie alike: every form of the value starts at the same place.
template <class Value>
A_Err getNewStreamValue(AEGP_PluginID, AEGP_StreamRefH stream, AEGP_LTimeMode, const A_Time* time, A_Boolean,
                        Value* value) {
  HostState& host = hostState();
  if (!time || time->scale == 0 || !value) {
    return badArgument("AEGP_GetNewStreamValue was called without a time, with a time scale of 0 or without a record");
  }
  const auto source = host.streams.sourceOf(stream);
  if (!source) return PF_Err_BAD_CALLBACK_PARAM;
  if (source->parameter) return badArgument("AEGP_GetNewStreamValue offers no values of parameters");
  const std::string what = "AEGP_GetNewStreamValue " + std::to_string(source->code);
  if (const PF_Err refused = host.faults.refusal(HostCall::StreamValue, what)) return refused;
  host.streams.takeValue(stream);
  const double seconds = static_cast<double>(time->value) / time->scale;
  *value = {};
  value->streamH = stream;
  value->val.three_d =
      source->maskId ? maskValue(host.options, *source, seconds) : transformValue(host.options, source->code, seconds);
  return PF_Err_NONE;
}

template <class Value>
A_Err disposeStreamValue(Value* value) {
  HostState& host = hostState();
  const PF_Err refused = host.faults.refusal(HostCall::DisposeStreamValue, "AEGP_DisposeStreamValue");
  if (!value) return badArgument("AEGP_DisposeStreamValue was called without a record");
  if (!host.streams.disposeValue(value->streamH)) return PF_Err_BAD_CALLBACK_PARAM;
  *value = {};
  return refused;
}

AEGP_StreamSuite2 makeStreamSuite7() {
  auto suite = tableOfUnimplementedSlots<AEGP_StreamSuite2>();
  suite.AEGP_GetNewLayerStream = &getNewLayerStream;
  suite.AEGP_GetNewEffectStreamByIndex = &getNewEffectStreamByIndex;
  // The slot keeps its place in version 9.
  suite.unused6 = reinterpret_cast<void*>(&getNewMaskStream);
  suite.AEGP_DisposeStream = &disposeStream;
  suite.AEGP_GetNewStreamValue = &getNewStreamValue<AEGP_StreamValue>;
  suite.AEGP_DisposeStreamValue = &disposeStreamValue<AEGP_StreamValue>;
  return suite;
}

AEGP_StreamSuite4 makeStreamSuite9() {
  auto suite = tableOfUnimplementedSlots<AEGP_StreamSuite4>();
  // The slots keep their places from version 7.
  suite.unused0_5[3] = reinterpret_cast<void*>(&getNewLayerStream);
  suite.unused0_5[5] = reinterpret_cast<void*>(&getNewEffectStreamByIndex);
  suite.AEGP_GetNewMaskStream = &getNewMaskStream;
  suite.AEGP_DisposeStream = &disposeStream;
  suite.AEGP_GetNewStreamValue = &getNewStreamValue<AEGP_StreamValue2>;
  suite.AEGP_DisposeStreamValue = &disposeStreamValue<AEGP_StreamValue2>;
  return suite;
}

}  // namespace

const AEGP_StreamSuite2& streamSuite7() {
  static const AEGP_StreamSuite2 suite = makeStreamSuite7();
  return suite;
}

const AEGP_StreamSuite4& streamSuite9() {
  static const AEGP_StreamSuite4 suite = makeStreamSuite9();
  return suite;
}

}  // namespace quiltor::standalone
