#pragma once

#include <string_view>

namespace quiltor {

// The effect's own description, alone in its file so that a module can be linked with another. The order of its
// sections is the order of the parameters; Param names their indices.
std::string_view builtInDescription();

}  // namespace quiltor
