#include "standalone/host/services/host_state.h"
#include "standalone/host/suites/suite_table.h"
#include "standalone/host/suites/suite_tables.h"

namespace quiltor::standalone {
namespace {

// There is one layer, and its handle is the address of this.
int theLayer = 0;
AEGP_LayerH layerHandle() { return reinterpret_cast<AEGP_LayerH>(&theLayer); }

A_Err badArgument(const char* text) {
  hostState().findings.record(FindingKind::BadArgument, text);
  return PF_Err_BAD_CALLBACK_PARAM;
}

A_Err getEffectLayer(PF_ProgPtr effect, AEGP_LayerH* layer) {
  HostState& host = hostState();
  if (host.faults.strikes(HostCall::Layer) || !host.callOf(effect)) return PF_Err_BAD_CALLBACK_PARAM;
  if (!layer) return badArgument("AEGP_GetEffectLayer was called without a destination");
  *layer = layerHandle();
  return PF_Err_NONE;
}

A_Err getNewLayerStream(AEGP_PluginID, AEGP_LayerH layer, AEGP_LayerStream code, AEGP_StreamRefH* stream) {
  HostState& host = hostState();
  if (host.faults.strikes(HostCall::Stream)) return PF_Err_BAD_CALLBACK_PARAM;
  if (layer != layerHandle()) {
    host.findings.record(FindingKind::ObjectUnknown, "a stream was asked of what is no layer");
    return PF_Err_BAD_CALLBACK_PARAM;
  }
  if (!stream || code < AEGP_LayerStream_ANCHORPOINT || code > AEGP_LayerStream_ROTATION) {
    return badArgument("AEGP_GetNewLayerStream offers anchor, position, scale and rotation, and needs a destination");
  }
  *stream = host.streams.open(code);
  return PF_Err_NONE;
}

A_Err disposeStream(AEGP_StreamRefH stream) {
  return hostState().streams.dispose(stream) ? PF_Err_NONE : PF_Err_BAD_CALLBACK_PARAM;
}

AEGP_ThreeDVal transformValue(AEGP_LayerStream code, const A_Time& time) {
  const HostOptions& options = hostState().options;
  const LayerTransform at =
      options.transformAt ? options.transformAt(static_cast<double>(time.value) / time.scale) : options.transform;
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

// Both suites' value records lie alike: every form of the value starts at the same place.
template <class Value>
A_Err getNewStreamValue(AEGP_PluginID, AEGP_StreamRefH stream, AEGP_LTimeMode, const A_Time* time, A_Boolean,
                        Value* value) {
  HostState& host = hostState();
  if (host.faults.strikes(HostCall::StreamValue)) return PF_Err_BAD_CALLBACK_PARAM;
  if (!time || time->scale == 0 || !value) {
    return badArgument("AEGP_GetNewStreamValue was called without a time, with a time scale of 0 or without a record");
  }
  AEGP_LayerStream code = 0;
  if (!host.streams.takeValue(stream, code)) return PF_Err_BAD_CALLBACK_PARAM;
  *value = {};
  value->streamH = stream;
  value->val.three_d = transformValue(code, *time);
  return PF_Err_NONE;
}

template <class Value>
A_Err disposeStreamValue(Value* value) {
  if (!value) return badArgument("AEGP_DisposeStreamValue was called without a record");
  if (!hostState().streams.disposeValue(value->streamH)) return PF_Err_BAD_CALLBACK_PARAM;
  *value = {};
  return PF_Err_NONE;
}

AEGP_PFInterfaceSuite1 makePfInterfaceSuite() {
  auto suite = tableOfUnimplementedSlots<AEGP_PFInterfaceSuite1>();
  suite.AEGP_GetEffectLayer = &getEffectLayer;
  return suite;
}

AEGP_StreamSuite2 makeStreamSuite7() {
  auto suite = tableOfUnimplementedSlots<AEGP_StreamSuite2>();
  suite.AEGP_GetNewLayerStream = &getNewLayerStream;
  suite.AEGP_DisposeStream = &disposeStream;
  suite.AEGP_GetNewStreamValue = &getNewStreamValue<AEGP_StreamValue>;
  suite.AEGP_DisposeStreamValue = &disposeStreamValue<AEGP_StreamValue>;
  return suite;
}

AEGP_StreamSuite4 makeStreamSuite9() {
  auto suite = tableOfUnimplementedSlots<AEGP_StreamSuite4>();
  // The slot keeps its place from version 7.
  suite.unused0_5[3] = reinterpret_cast<void*>(&getNewLayerStream);
  suite.AEGP_DisposeStream = &disposeStream;
  suite.AEGP_GetNewStreamValue = &getNewStreamValue<AEGP_StreamValue2>;
  suite.AEGP_DisposeStreamValue = &disposeStreamValue<AEGP_StreamValue2>;
  return suite;
}

}  // namespace

const AEGP_PFInterfaceSuite1& pfInterfaceSuite() {
  static const AEGP_PFInterfaceSuite1 suite = makePfInterfaceSuite();
  return suite;
}

const AEGP_StreamSuite2& streamSuite7() {
  static const AEGP_StreamSuite2 suite = makeStreamSuite7();
  return suite;
}

const AEGP_StreamSuite4& streamSuite9() {
  static const AEGP_StreamSuite4 suite = makeStreamSuite9();
  return suite;
}

}  // namespace quiltor::standalone
