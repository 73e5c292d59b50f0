#pragma once

#include <string>
#include <vector>

#include "library/library_config.h"

namespace quiltor::standalone {

struct FoundLibraries {
  std::vector<Library> libraries;
  std::vector<std::string> leftOut;  // paths of libraries whose line could not be read again
};

// The libraries in the configured folders, in their order, and then those of the cloud, as the dialogs find them.
[[nodiscard]] FoundLibraries findLibraries(const LibrarySettings& settings);

}  // namespace quiltor::standalone
