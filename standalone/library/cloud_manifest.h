#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace quiltor::standalone {

// The name of a cloud library that holds patterns, from the text of its manifest; nothing for any other text. Marks and
// names are looked for in the text as they come, so that a manifest of any structure is understood.
[[nodiscard]] std::optional<std::string> cloudLibraryName(std::string_view manifest);

}  // namespace quiltor::standalone
