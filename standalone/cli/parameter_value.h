#pragma once

#include <string_view>
#include <variant>

#include "hostapi/pixels.h"
#include "standalone/host/parameter.h"

namespace quiltor::standalone {

struct ChosenItem {
  int item = 1;  // from 1
};
struct PointValue {
  double x = 0, y = 0;
  bool percent = true;  // of the layer; else full-resolution pixels
};

// Sliders and angles (degrees) hold a number, check boxes a bool.
using ParameterValue = std::variant<double, bool, ChosenItem, PF_Pixel, PointValue>;

// Reads what was typed for a parameter: an item's name or number, a number or percentage, on or off, a colour such as
// #49bc38, a point such as 50%,50% or 960,540. Throws UsageError, whose text starts with the parameter's name.
[[nodiscard]] ParameterValue parseParameterValue(const Parameter& parameter, std::string_view text);

}  // namespace quiltor::standalone
