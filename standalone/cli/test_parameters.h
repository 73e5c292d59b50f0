#pragma once

#include <string>
#include <utility>
#include <vector>

#include "standalone/host/parameter.h"

namespace quiltor::standalone {

inline Parameter makeParameter(PF_ParamType type, std::string name) {
  Parameter parameter;
  parameter.definition.param_type = type;
  parameter.name = std::move(name);
  return parameter;
}

inline Parameter makePercentSlider(std::string name, float low, float high, float standard) {
  Parameter parameter = makeParameter(PF_Param_FLOAT_SLIDER, std::move(name));
  parameter.definition.u.fs_d.valid_min = low;
  parameter.definition.u.fs_d.valid_max = high;
  parameter.definition.u.fs_d.dephault = standard;
  parameter.definition.u.fs_d.display_flags = PF_ValueDisplayFlag_PERCENT;
  return parameter;
}

inline Parameter makePopup(std::string name, std::string items, A_short standard) {
  Parameter parameter = makeParameter(PF_Param_POPUP, std::move(name));
  parameter.text = std::move(items);
  parameter.definition.u.pd.num_choices = static_cast<A_short>(parameter.items().size());
  parameter.definition.u.pd.dephault = standard;
  return parameter;
}

// The first parameters of the Quiltor module, and one that is another effect's.
inline std::vector<Parameter> quiltorParameters() {
  return {makeParameter(PF_Param_LAYER, ""),
          makePopup("Source", "Layer|File", 2),
          makeParameter(PF_Param_LAYER, "Pattern Layer"),
          makeParameter(PF_Param_ARBITRARY_DATA, "Pattern"),
          makeParameter(PF_Param_CHECKBOX, "Lock Pattern"),
          makePopup("Tile Mode", "Single|Tiled|Mirrored", 2),
          makePopup("Blend Mode", "Normal|Multiply|(-|Soft Light|Hard Light", 1),
          makePercentSlider("Opacity", 0, 100, 100),
          makePercentSlider("Strength", 1, 500, 100)};
}

}  // namespace quiltor::standalone
