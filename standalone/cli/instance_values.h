#pragma once

#include <filesystem>
#include <vector>

#include "standalone/cli/parameter_value.h"
#include "standalone/host/instance.h"

namespace quiltor::standalone {

// Sets a parameter to a value that was read for it.
void applyValue(Instance& instance, int index, const ParameterValue& value);

// An instance as a project holds it, with this picture as its pattern.
[[nodiscard]] std::vector<unsigned char> savedWithPattern(Effect& effect, const std::filesystem::path& pattern);

}  // namespace quiltor::standalone
