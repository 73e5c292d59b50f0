#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "standalone/cli/parameter_value.h"

namespace quiltor::standalone {

// The short name under which a parameter can be set on the command line, "blendmode" for "Blend Mode"; empty when it
// has none. A host learns display names only: the short names of the Quiltor module are known here.
[[nodiscard]] std::string_view shortName(std::span<const Parameter> parameters, std::size_t index);

// The parameter of that short or display name, without regard to case. Entry 0, the input layer, is never found.
// Throws UsageError.
[[nodiscard]] int findParameter(std::span<const Parameter> parameters, std::string_view name);

// The parameter that the effect draws and takes clicks for itself; nothing when there is none.
[[nodiscard]] std::optional<int> ownControl(std::span<const Parameter> parameters);

struct Assignment {
  int index = 0;
  ParameterValue value;
};

// Reads NAME=VALUE; `masks` are the identifiers of the layer's. Throws UsageError.
[[nodiscard]] Assignment parseAssignment(std::span<const Parameter> parameters, std::string_view text,
                                         std::span<const int32_t> masks = {});

}  // namespace quiltor::standalone
