#include "standalone/host/param_values.h"

#include <algorithm>
#include <cmath>
#include <initializer_list>
#include <stdexcept>
#include <string>
#include <utility>

#include "standalone/host/services/resolution.h"

namespace quiltor::standalone {
namespace {

constexpr double kFixedOne = 65536;

PF_Fixed toFixed(double value) {
  const double scaled = std::round(value * kFixedOne);
  return static_cast<PF_Fixed>(std::clamp(scaled, -2147483648.0, 2147483647.0));
}

double fromFixed(PF_Fixed value) { return value / kFixedOne; }

void setToDefault(PF_ParamDef& definition) {
  auto& u = definition.u;
  switch (definition.param_type) {
    case PF_Param_SLIDER:
      u.sd.value = u.sd.dephault;
      return;
    case PF_Param_FIX_SLIDER:
      u.fd.value = u.fd.dephault;
      return;
    case PF_Param_ANGLE:
      u.ad.value = u.ad.dephault;
      return;
    case PF_Param_CHECKBOX:
      u.bd.value = u.bd.dephault;
      return;
    case PF_Param_COLOR:
      u.cd.value = u.cd.dephault;
      return;
    case PF_Param_POPUP:
      u.pd.value = u.pd.dephault;
      return;
    case PF_Param_FLOAT_SLIDER:
      u.fs_d.value = static_cast<PF_FpLong>(u.fs_d.dephault);
      return;
    case PF_Param_PATH:
      u.path_d.path_id = static_cast<PF_PathID>(u.path_d.dephault);
      return;
    case PF_Param_ARBITRARY_DATA:
      u.arb_d.value = u.arb_d.dephault;
      return;
    default:
      return;
  }
}

}  // namespace

ParamValues::ParamValues(const std::vector<Parameter>& parameters) {
  for (const Parameter& parameter : parameters) {
    Value value;
    value.definition = parameter.definition;
    value.definition.uu.change_flags = 0;
    setToDefault(value.definition);
    const auto& u = value.definition.u;
    if (parameter.definition.param_type == PF_Param_POINT) {
      value.x = fromFixed(u.td.x_dephault);
      value.y = fromFixed(u.td.y_dephault);
    } else if (parameter.definition.param_type == PF_Param_POINT_3D) {
      value.x = u.point3d_d.x_dephault;
      value.y = u.point3d_d.y_dephault;
    } else if (parameter.definition.param_type == PF_Param_LAYER) {
      value.standsForSelf = u.ld.dephault == PF_LayerDefault_MYSELF;
      value.definition.u.ld = {};
    }
    values_.push_back(std::move(value));
  }
  if (!values_.empty()) values_[0].standsForSelf = true;
}

ParamValues::Value& ParamValues::valueOf(int index, const char* expected, std::initializer_list<PF_ParamType> types) {
  const bool exists = index > 0 && static_cast<std::size_t>(index) < values_.size();
  if (exists) {
    Value& value = values_[static_cast<std::size_t>(index)];
    if (types.size() == 0 || std::find(types.begin(), types.end(), value.definition.param_type) != types.end()) {
      return value;
    }
  }
  throw std::invalid_argument("parameter " + std::to_string(index) + " is not " + expected + " of this effect");
}

void ParamValues::setNumber(int index, double number) {
  PF_ParamDef& definition = valueOf(index, "a slider or an angle",
                                    {PF_Param_SLIDER, PF_Param_FIX_SLIDER, PF_Param_ANGLE, PF_Param_FLOAT_SLIDER})
                                .definition;
  switch (definition.param_type) {
    case PF_Param_SLIDER:
      definition.u.sd.value = static_cast<PF_ParamValue>(std::lround(number));
      return;
    case PF_Param_FIX_SLIDER:
      definition.u.fd.value = toFixed(number);
      return;
    case PF_Param_ANGLE:
      definition.u.ad.value = toFixed(number);
      return;
    default:
      definition.u.fs_d.value = number;
  }
}

void ParamValues::setChoice(int index, int item) {
  valueOf(index, "a popup", {PF_Param_POPUP}).definition.u.pd.value = item;
}

void ParamValues::setChecked(int index, bool on) {
  valueOf(index, "a check box", {PF_Param_CHECKBOX}).definition.u.bd.value = on ? 1 : 0;
}

void ParamValues::setColor(int index, const PF_Pixel& color) {
  valueOf(index, "a colour", {PF_Param_COLOR}).definition.u.cd.value = color;
}

void ParamValues::setPointPercent(int index, double x, double y) {
  Value& value = valueOf(index, "a point", {PF_Param_POINT, PF_Param_POINT_3D});
  value.pointInPixels = false;
  value.x = x;
  value.y = y;
}

void ParamValues::setPointPixels(int index, double x, double y) {
  setPointPercent(index, x, y);
  values_[static_cast<std::size_t>(index)].pointInPixels = true;
}

void ParamValues::setPath(int index, PF_PathID id) {
  valueOf(index, "a path", {PF_Param_PATH}).definition.u.path_d.path_id = id;
}

void ParamValues::setLayer(int index, LayerSource source) {
  Value& value = valueOf(index, "a layer parameter", {PF_Param_LAYER});
  value.standsForSelf = false;
  value.layer = std::move(source);
}

void ParamValues::adjust(int index, Adjust hook) { valueOf(index, "a parameter", {}).hook = std::move(hook); }

bool ParamValues::isLayer(std::size_t index) const { return values_.at(index).definition.param_type == PF_Param_LAYER; }

PF_ParamDef ParamValues::at(std::size_t index, const LayerSize& buffer, const HostOptions& options) const {
  const Value& value = values_.at(index);
  PF_ParamDef definition = value.definition;
  const double x =
      value.pointInPixels ? value.x * factorOf(options.downsampleX) : value.x / 100 * static_cast<double>(buffer.width);
  const double y = value.pointInPixels ? value.y * factorOf(options.downsampleY)
                                       : value.y / 100 * static_cast<double>(buffer.height);
  if (definition.param_type == PF_Param_POINT) {
    definition.u.td.x_value = toFixed(x);
    definition.u.td.y_value = toFixed(y);
  } else if (definition.param_type == PF_Param_POINT_3D) {
    definition.u.point3d_d.x_value = x;
    definition.u.point3d_d.y_value = y;
    definition.u.point3d_d.z_value = definition.u.point3d_d.z_dephault;
  }
  return definition;
}

void ParamValues::applyHook(std::size_t index, PF_ParamDef& definition, A_long time, A_u_long timeScale) const {
  if (const auto& hook = values_.at(index).hook) hook(definition, time, timeScale);
}

const World* ParamValues::layerAt(std::size_t index, A_long time, A_u_long timeScale, const World* self) const {
  const Value& value = values_.at(index);
  if (value.standsForSelf) return self;
  return value.layer ? value.layer(time, timeScale) : nullptr;
}

}  // namespace quiltor::standalone
