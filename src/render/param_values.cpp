#include "render/param_values.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <limits>
#include <string>

#include "render/kernels/channel_scale.h"

namespace quiltor {
namespace {

constexpr int32_t kMaskChooser = 99;
constexpr int32_t kFrameStepCode = 994;
constexpr int32_t kFirstIntCode = 900;

// Towards zero, and to the nearest end of the range for what does not fit.
int32_t truncated(double value) {
  if (std::isnan(value)) return 0;
  constexpr double kLow = std::numeric_limits<int32_t>::min(), kHigh = std::numeric_limits<int32_t>::max();
  return static_cast<int32_t>(std::clamp(value, kLow, kHigh));
}

float wholePart(PF_Fixed value) { return static_cast<float>(value >> 16); }

float fraction(A_u_char channel) { return static_cast<float>(channel) * kByteStep; }

ParamSlot scalar(double value) { return {{0, 0, 0, static_cast<float>(value)}}; }

// The menu's item at a place, as a number; a place beyond the menu reads as 0.
int32_t itemNumber(const ParamRecord& record, int32_t place) {
  if (place < 0 || place >= static_cast<int32_t>(record.popupItems.size())) return 0;
  const long number = std::strtol(record.popupItems[static_cast<size_t>(place)].c_str(), nullptr, 10);
  return truncated(static_cast<double>(number));
}

}  // namespace

ParamSlot slotOf(const ParamRecord& record, const PF_ParamDef& value) {
  switch (record.kind) {
    case ParamKind::Int:
    case ParamKind::Float:
      return scalar(value.u.fs_d.value);
    case ParamKind::Check:
      return scalar(value.u.bd.value);
    case ParamKind::Popup:
      if (record.flags == kMaskChooser) return scalar(static_cast<double>(value.u.path_d.path_id) - 1);
      return scalar(static_cast<double>(value.u.pd.value) - 1);
    case ParamKind::Color:
      return {{0, fraction(value.u.cd.value.red), fraction(value.u.cd.value.green), fraction(value.u.cd.value.blue)}};
    case ParamKind::Angle:
      return {{0, 0, 0, wholePart(value.u.ad.value)}};
    case ParamKind::Point:
    case ParamKind::Vec2:
      return {{0, 0, wholePart(value.u.td.x_value), wholePart(value.u.td.y_value)}};
    case ParamKind::Vec3:
      return {{0, static_cast<float>(value.u.point3d_d.x_value), static_cast<float>(value.u.point3d_d.y_value),
               static_cast<float>(value.u.point3d_d.z_value)}};
    case ParamKind::None:
    case ParamKind::Layer:
    case ParamKind::TopicStart:
    case ParamKind::TopicEnd:
    case ParamKind::Custom:
    case ParamKind::Button:
    case ParamKind::Text:
      break;
  }
  return {};
}

void routeSpecialValue(const ParamRecord& record, const PF_ParamDef& value, SpecialWords& words) {
  const int32_t code = std::abs(record.special);
  const bool isInt = code >= kFirstIntCode && code < kFirstIntCode + static_cast<int32_t>(words.ints.size());
  if (code != kFrameStepCode && !isInt) return;

  const int32_t place = truncated(std::floor(static_cast<double>(slotOf(record, value).scalar())));
  const bool asText = record.special > 0;
  if (isInt) {
    const bool isMenu = record.kind == ParamKind::Popup;
    words.ints[static_cast<size_t>(code - kFirstIntCode)] = asText && isMenu ? itemNumber(record, place) : place;
  } else {
    words.frameStep = asText ? itemNumber(record, place) : place;
  }
}

A_long layerCheckoutTime(const ParamRecord& record, int32_t shift, const PF_InData& in, int32_t frameStep) {
  const double n = std::trunc(static_cast<double>(shift) + static_cast<double>(record.defaultValue[0]));
  const int32_t mode = truncated(static_cast<double>(record.defaultValue[1]));
  const double now = in.current_time, step = in.time_step;
  double time = 0;
  if (mode == 0) {
    time = now + (static_cast<double>(frameStep) + 1) * step * n;
  } else if (mode == 1) {
    time = step * n;
  } else if (n == 1) {
    time = now;
  } else if (n >= 2 && in.time_step != 0) {
    const float held = std::floor(static_cast<float>(now) / static_cast<float>(step * n));
    time = std::trunc(static_cast<double>(held) * n) * step;
  }
  return std::max(truncated(time), A_long{0});
}

}  // namespace quiltor
