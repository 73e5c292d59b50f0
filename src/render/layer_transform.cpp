#include "render/layer_transform.h"

#include <optional>

#include "base/scope_guard.h"
#include "host/application.h"

namespace quiltor {
namespace {

// A layer's stream at the current layer time; nothing when the host refuses one of the calls.
std::optional<AEGP_TwoDVal> readStream(const AEGP_StreamSuite2& streams, const PF_InData& in, AEGP_PluginID pluginId,
                                       AEGP_LayerH layer, AEGP_LayerStream code) {
  AEGP_StreamRefH stream = nullptr;
  if (streams.AEGP_GetNewLayerStream(pluginId, layer, code, &stream) != PF_Err_NONE || !stream) return std::nullopt;
  const ScopeGuard disposeStream([&] { streams.AEGP_DisposeStream(stream); });
  const A_Time now{in.current_time, in.time_scale};
  AEGP_StreamValue value{};
  if (streams.AEGP_GetNewStreamValue(pluginId, stream, AEGP_LTimeMode_LayerTime, &now, 0, &value) != PF_Err_NONE) {
    return std::nullopt;
  }
  // Every kind of value begins with the numbers that are wanted of it.
  const AEGP_TwoDVal numbers = value.val.two_d;
  streams.AEGP_DisposeStreamValue(&value);
  return numbers;
}

}  // namespace

LayerTransformReading readLayerTransform(SuiteHandler& suites, const PF_InData& in, AEGP_PluginID pluginId) {
  LayerTransformReading reading;
  try {
    const AEGP_PFInterfaceSuite1& effects = suites.pfInterface();
    const AEGP_StreamSuite2& streams = suites.streams();
    AEGP_LayerH layer = nullptr;
    if (effects.AEGP_GetEffectLayer(in.effect_ref, &layer) != PF_Err_NONE || !layer) return reading;
    const auto read = [&](AEGP_LayerStream code) { return readStream(streams, in, pluginId, layer, code); };
    LayerTransform& transform = reading.transform;
    if (const auto position = read(AEGP_LayerStream_POSITION)) {
      transform.positionX = position->x;
      transform.positionY = position->y;
    }
    if (const auto scale = read(AEGP_LayerStream_SCALE)) {
      transform.scaleX = scale->x;
      transform.scaleY = scale->y;
    }
    if (const auto rotation = read(AEGP_LayerStream_ROTATION)) transform.rotation = rotation->x;
    if (const auto anchor = read(AEGP_LayerStream_ANCHORPOINT)) {
      transform.anchorX = anchor->x;
      transform.anchorY = anchor->y;
    }
  } catch (HostErr code) {
    if (!isVideoEditor(in)) reading.missingSuite = code;
  }
  return reading;
}

}  // namespace quiltor
