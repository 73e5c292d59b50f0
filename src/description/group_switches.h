#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "description/language/description.h"
#include "hostapi/params.h"

namespace quiltor {

// What the switches of a description make of one parameter. Where several govern it in one way, the last one counts.
struct GovernedParam {
  int32_t index = 0;
  int32_t state = 0;  // as the instance's visibility array keeps it: 1, -1 disabled or not; 2, -2 hidden or not
  std::optional<bool> hidden;    // by switches of groups above 100
  std::optional<bool> disabled;  // by those of groups up to 100
};

// The parameters that a switch governs, by index, as the current values have it. values[index] is the host's record of
// each parameter; it may be null, or lack the last ones, which then count as 0.
std::vector<GovernedParam> governedParams(const Description& description, PF_ParamDef* const* values, int32_t count);

}  // namespace quiltor
