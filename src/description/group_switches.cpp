#include "description/group_switches.h"

#include <algorithm>
#include <cmath>
#include <map>

namespace quiltor {
namespace {

constexpr int64_t kLastDisablingGroup = 100;

// Groups are 32-bit numbers; nothing beyond these is one.
constexpr double kFarthestValue = 1e10;

// The whole part, and 0 of what is no number.
int64_t wholePart(double value) {
  return std::isnan(value) ? 0 : static_cast<int64_t>(std::clamp(value, -kFarthestValue, kFarthestValue));
}

// Popups count from 1 in the host.
int64_t valueOf(const PF_ParamDef& param) {
  switch (param.param_type) {
    case PF_Param_POPUP:
      return int64_t{param.u.pd.value} - 1;
    case PF_Param_CHECKBOX:
      return param.u.bd.value;
    case PF_Param_FLOAT_SLIDER:
      return wholePart(param.u.fs_d.value);
    case PF_Param_ANGLE:
      return param.u.ad.value >> 16;
    case PF_Param_PATH:
      return param.u.path_d.path_id;
    default:
      return 0;
  }
}

struct Switch {
  int64_t firstGroup;
  int64_t lastGroup;
  int64_t selectedGroup;
};

bool isSwitch(const ParamRecord& param) { return param.groups[0] < 0; }

Switch switchOf(const ParamRecord& param, int64_t value) {
  const int64_t first = -int64_t{param.groups[0]};
  return {first, first + std::max<int64_t>(wholePart(param.maximum), 1), first + value};
}

enum class Membership { None, On, Off };

// A parameter's groups end at the first slot that holds none.
Membership membershipOf(const ParamRecord& param, const Switch& group) {
  const auto end = std::ranges::find_if(param.groups, [](int32_t slot) { return slot < 1; });
  Membership membership = Membership::None;
  for (auto slot = param.groups.begin(); slot != end; ++slot) {
    if (*slot < group.firstGroup || *slot > group.lastGroup) continue;
    if (*slot == group.selectedGroup) return Membership::On;
    membership = Membership::Off;
  }
  return membership;
}

void applySwitch(const Switch& group, Membership membership, GovernedParam& param) {
  const bool off = membership == Membership::Off;
  const bool disables = group.firstGroup <= kLastDisablingGroup;
  (disables ? param.disabled : param.hidden) = off;
  param.state = (disables ? 1 : 2) * (off ? 1 : -1);
}

}  // namespace

std::vector<GovernedParam> governedParams(const Description& description, PF_ParamDef* const* values, int32_t count) {
  std::map<int32_t, GovernedParam> governed;
  for (int32_t at = 1; at < description.paramCount; ++at) {
    const ParamRecord& param = description.params[static_cast<size_t>(at)];
    if (!isSwitch(param)) continue;
    const PF_ParamDef* current = at < count ? values[at] : nullptr;
    const Switch group = switchOf(param, current ? valueOf(*current) : 0);
    for (int32_t index = 1; index < description.paramCount; ++index) {
      const Membership membership = membershipOf(description.params[static_cast<size_t>(index)], group);
      if (membership != Membership::None) applySwitch(group, membership, governed[index]);
    }
  }
  std::vector<GovernedParam> all;
  for (auto& [index, param] : governed) {
    param.index = index;
    all.push_back(param);
  }
  return all;
}

}  // namespace quiltor
