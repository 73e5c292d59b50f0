#pragma once

#include <span>
#include <string>
#include <string_view>

namespace quiltor::standalone {

// Whether two names are the same but for the case of ASCII letters.
[[nodiscard]] bool sameName(std::string_view first, std::string_view second);

// `; did you mean "Soft Light"?` for the known name that is nearest to what was typed, empty when none is near.
[[nodiscard]] std::string suggestion(std::string_view typed, std::span<const std::string> known);

}  // namespace quiltor::standalone
