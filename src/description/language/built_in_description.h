#pragma once

#include <string_view>

namespace quiltor {

// The effect's own description. The order of its sections is the order of the parameters; Param names their indices.
std::string_view builtInDescription();

}  // namespace quiltor
