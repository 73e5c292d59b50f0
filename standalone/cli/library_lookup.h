#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "library/library_config.h"

namespace quiltor::standalone {

// "[Textures] wood | oak", as the gallery shows a library.
[[nodiscard]] std::string displayName(const Library& library);

// The libraries that the gallery shows.
[[nodiscard]] std::vector<Library> shownLibraries();

// The library that was meant: by its displayed name, its name, its label when it has no name, the last folder of its
// name, or its path. Throws UsageError, with the nearest name or those among which it cannot choose.
[[nodiscard]] const Library& findLibrary(std::span<const Library> libraries, std::string_view typed);

}  // namespace quiltor::standalone
