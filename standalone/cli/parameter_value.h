#pragma once

#include <cstdint>
#include <span>
#include <string_view>
#include <variant>

#include "hostapi/pixels.h"
#include "standalone/host/parameter.h"

namespace quiltor::standalone {

struct ChosenItem {
  int item = 1;  // from 1
};
struct ChosenMask {
  int32_t id = 0;  // 0: none
};
struct PointValue {
  double x = 0, y = 0;
  bool percent = true;  // of the layer; else full-resolution pixels
};

// Sliders and angles (degrees) hold a number, check boxes a bool.
using ParameterValue = std::variant<double, bool, ChosenItem, ChosenMask, PF_Pixel, PointValue>;

// Reads what was typed for a parameter: an item's name or number, a number or percentage, on or off, a colour such as
// #49bc38, a point such as 50%,50% or 960,540, one of the masks that there are by its identifier, or none. Throws
// UsageError, whose text starts with the parameter's name.
[[nodiscard]] ParameterValue parseParameterValue(const Parameter& parameter, std::string_view text,
                                                 std::span<const int32_t> masks = {});

}  // namespace quiltor::standalone
