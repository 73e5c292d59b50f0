#pragma once

#include "host/host_error.h"
#include "host/suite_handler.h"
#include "hostapi/effect.h"

namespace quiltor {

// The transform of the effect's layer at the current time, in full-resolution pixels, percent and degrees.
struct LayerTransform {
  double positionX = 0, positionY = 0;
  double scaleX = 100, scaleY = 100;
  double rotation = 0;
  double anchorX = 0, anchorY = 0;
};

struct LayerTransformReading {
  LayerTransform transform;
  // The code of a suite that the host does not offer. Kept and not thrown: the layer is read before the render waits
  // for its turn, but a frame that is aborted needs no transform.
  HostErr missingSuite = PF_Err_NONE;
};

// Asks the host for the layer's transform. A call that fails leaves that value neutral. Deliberate: the video editor
// has no such suites and renders with the neutral transform.
LayerTransformReading readLayerTransform(SuiteHandler& suites, const PF_InData& in, AEGP_PluginID pluginId);

}  // namespace quiltor
