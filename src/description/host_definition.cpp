#include "description/host_definition.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <limits>
#include <string_view>
#include <vector>

#include "description/language/numbers.h"
#include "description/language/text_pieces.h"
#include "hostapi/effect.h"

namespace quiltor {
namespace {

constexpr PF_ParamFlags kNoInterpolation = PF_ParamFlag_CANNOT_INTERP | PF_ParamFlag_SUPERVISE;
constexpr int32_t kMaskChooser = 99;  // the popup flags that ask for the layer's masks
constexpr double kMostPercent = 10000;
constexpr A_short kControlPixels = 50;

// The whole part; the nearest number of the type where the value is too large for it, 0 where it is not a number.
template <class Whole>
Whole truncated(double value) {
  if (std::isnan(value)) return 0;
  if (value <= double{std::numeric_limits<Whole>::min()}) return std::numeric_limits<Whole>::min();
  if (value >= double{std::numeric_limits<Whole>::max()}) return std::numeric_limits<Whole>::max();
  return static_cast<Whole>(value);
}

PF_Fixed fixedFrom(double whole) { return truncated<PF_Fixed>(whole * 65536); }

double cappedWhole(double value) { return std::min<double>(truncated<A_long>(value), kMostPercent); }

void defineSlider(PF_ParamDef& definition, const ParamRecord& param, PF_Precision precision) {
  definition.param_type = PF_Param_FLOAT_SLIDER;
  PF_FloatSliderDef& slider = definition.u.fs_d;
  slider.value = param.defaultValue[0];
  slider.dephault = param.defaultValue[0];
  slider.slider_min = param.displayMinimum;
  slider.slider_max = param.displayMaximum;
  slider.valid_min = param.displayMinimum;
  slider.valid_max = param.displayMaximum;
  const std::vector<std::string_view> range = splitAt(param.popupText, '|');
  if (range.size() >= 2 && readFloat(range[0]) != readFloat(range[1])) {
    slider.valid_min = readFloat(range[0]);
    slider.valid_max = readFloat(range[1]);
  }
  slider.precision = precision;
  slider.display_flags = param.flags >= 1 ? PF_ValueDisplayFlag_PERCENT : PF_ValueDisplayFlag_NONE;
  slider.curve_tolerance = 0.05F;
}

void defineCheckbox(PF_ParamDef& definition, const ParamRecord& param, const char* label) {
  definition.param_type = PF_Param_CHECKBOX;
  definition.flags = kNoInterpolation;
  definition.u.bd.value = truncated<A_long>(param.defaultValue[0]);
  definition.u.bd.dephault = truncated<PF_Boolean>(param.defaultValue[0]);
  definition.u.bd.u.nameptr = label;
}

void definePopup(PF_ParamDef& definition, const ParamRecord& param, const char* items) {
  if (param.flags == kMaskChooser) {
    definition.param_type = PF_Param_PATH;
    definition.u.path_d.path_id = PF_PathID_NONE;
    definition.u.path_d.dephault = PF_PathID_NONE;
    return;
  }
  definition.param_type = PF_Param_POPUP;
  definition.flags = kNoInterpolation;
  // The description counts items from 0, the host from 1.
  const double item = std::min(param.maximum, param.defaultValue[0]);
  definition.u.pd.num_choices = truncated<A_short>(std::trunc(double{param.maximum}) + 1);
  definition.u.pd.dephault = truncated<A_short>(std::trunc(item) + 1);
  definition.u.pd.value = definition.u.pd.dephault;
  definition.u.pd.u.namesptr = items;
}

void defineLayer(PF_ParamDef& definition) {
  definition.param_type = PF_Param_LAYER;
  definition.flags = kNoInterpolation;
  // Deliberate: no layer is registered with the code by which the host also knows the effect's own layer.
  definition.u.ld.dephault = PF_LayerDefault_MYSELF;
}

// Deliberate: defaults are fractions of 255 of which the low byte is kept, also where the text writes bytes.
A_u_char colorByte(float fraction) { return static_cast<A_u_char>(truncated<A_long>(double{fraction} * 255.0)); }

void defineColor(PF_ParamDef& definition, const ParamRecord& param) {
  definition.param_type = PF_Param_COLOR;
  definition.u.cd.value = {255, colorByte(param.defaultValue[0]), colorByte(param.defaultValue[1]),
                           colorByte(param.defaultValue[2])};
  definition.u.cd.dephault = definition.u.cd.value;
}

void defineAngle(PF_ParamDef& definition, const ParamRecord& param) {
  definition.param_type = PF_Param_ANGLE;
  definition.u.ad.value = fixedFrom(truncated<A_long>(param.defaultValue[0]));
  definition.u.ad.dephault = definition.u.ad.value;
}

void definePoint(PF_ParamDef& definition, const ParamRecord& param) {
  definition.param_type = PF_Param_POINT;
  definition.u.td.x_value = fixedFrom(cappedWhole(double{param.defaultValue[0]} * 100));
  definition.u.td.y_value = fixedFrom(cappedWhole(double{param.defaultValue[1]} * 100));
  definition.u.td.x_dephault = definition.u.td.x_value;
  definition.u.td.y_dephault = definition.u.td.y_value;
}

void definePoint3D(PF_ParamDef& definition, const ParamRecord& param) {
  definition.param_type = PF_Param_POINT_3D;
  PF_Point3DDef& point = definition.u.point3d_d;
  point.x_value = cappedWhole(param.defaultValue[0]);
  point.y_value = cappedWhole(param.defaultValue[1]);
  point.z_value = point.y_value;  // Deliberate: the second component gives both.
  point.x_dephault = point.x_value;
  point.y_dephault = point.y_value;
  point.z_dephault = point.z_value;
}

void defineControl(PF_ParamDef& definition, const ParamRecord& param) {
  definition.param_type = PF_Param_ARBITRARY_DATA;
  definition.ui_flags |= PF_PUI_CONTROL | PF_PUI_DONT_ERASE_CONTROL;
  definition.ui_width = kControlPixels;
  definition.ui_height = kControlPixels;
  definition.u.arb_d.id = static_cast<A_short>(param.id);
}

void defineGroupStart(PF_ParamDef& definition, const ParamRecord& param) {
  definition.param_type = PF_Param_GROUP_START;
  definition.flags = PF_ParamFlag_CANNOT_TIME_VARY;
  if (param.flags < 1) definition.flags |= PF_ParamFlag_START_COLLAPSED;
}

void defineButton(PF_ParamDef& definition, const char* label, A_AppID appId) {
  definition.flags = PF_ParamFlag_CANNOT_TIME_VARY | kNoInterpolation;
  if (appId == kAppId_PremierePro) {
    definition.param_type = PF_Param_COLOR;
    definition.ui_flags |= PF_PUI_INVISIBLE;
    return;
  }
  definition.param_type = PF_Param_BUTTON;
  definition.u.button_d.u.namesptr = label;
}

PF_ParamUIFlags visibilityFlags(int32_t visibility) {
  if (visibility == 1) return PF_PUI_DISABLED;
  return visibility == 2 ? PF_PUI_INVISIBLE : 0;
}

}  // namespace

std::string hostText(const ParamRecord& param) {
  std::string text = param.popupText;
  if (param.kind != ParamKind::Popup) return text;
  // An item "-" becomes "(-", the host's separator line. Two in a row share a bar, so the search goes on at it.
  for (size_t at = text.find("|-|"); at != std::string::npos; at = text.find("|-|", at)) text.replace(at, 3, "|(-|");
  return text;
}

PF_ParamDef hostDefinition(const ParamRecord& param, const char* text, A_AppID appId) {
  PF_ParamDef definition;
  std::memset(&definition, 0, sizeof definition);  // the padding and the unused union members too
  definition.uu.id = param.id;
  definition.ui_flags = visibilityFlags(param.visibility);
  switch (param.kind) {
    case ParamKind::None:
      break;
    case ParamKind::Int:
      defineSlider(definition, param, PF_Precision_INTEGER);
      break;
    case ParamKind::Float:
      defineSlider(definition, param, PF_Precision_HUNDREDTHS);
      break;
    case ParamKind::Check:
      defineCheckbox(definition, param, text);
      break;
    case ParamKind::Popup:
      definePopup(definition, param, text);
      break;
    case ParamKind::Layer:
      defineLayer(definition);
      break;
    case ParamKind::Color:
      defineColor(definition, param);
      break;
    case ParamKind::Angle:
      defineAngle(definition, param);
      break;
    case ParamKind::Point:
    case ParamKind::Vec2:
      definePoint(definition, param);
      break;
    case ParamKind::Vec3:
      definePoint3D(definition, param);
      break;
    case ParamKind::Custom:
      defineControl(definition, param);
      break;
    case ParamKind::TopicStart:
      defineGroupStart(definition, param);
      break;
    case ParamKind::TopicEnd:
      definition.param_type = PF_Param_GROUP_END;
      definition.flags = PF_ParamFlag_CANNOT_TIME_VARY;
      break;
    case ParamKind::Button:
    case ParamKind::Text:
      defineButton(definition, text, appId);
      break;
  }
  return definition;
}

}  // namespace quiltor
