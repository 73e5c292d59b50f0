#pragma once

#include <string>

#include "hostapi/basic_types.h"

namespace quiltor::standalone {

// Records what an effect passed that no host takes, and gives the answer to that: 516.
A_Err badArgument(std::string text);

}  // namespace quiltor::standalone
