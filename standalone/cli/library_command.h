#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "standalone/cli/console.h"

namespace quiltor::standalone {

// The libraries that the gallery shows, with the numbers of their pictures.
void runLibraryList(const Console& console);

struct LibraryScanOptions {
  std::vector<std::string> folders;  // none: those of the settings
  std::optional<bool> allUsers;      // without it, where the settings are
  std::optional<bool> cloud;         // without it, as in the settings
  std::optional<bool> flatten;
};

// Writes the settings and the list of libraries, as the settings dialog does, and lists the libraries. Throws
// UsageError for more folders than the settings hold and CommandFailure.
void runLibraryScan(const LibraryScanOptions& options, const Console& console);

// Makes what is missing of the library's patterns and thumbnails. False when anything failed. Throws CommandFailure
// when there is no list of libraries.
[[nodiscard]] bool runLibraryConvert(const Console& console);

struct LibrarySheetOptions {
  std::string library;
  std::filesystem::path output;
};

// A picture of a library's thumbnails with their names. Throws UsageError or CommandFailure.
void runLibrarySheet(const LibrarySheetOptions& options, const Console& console);

}  // namespace quiltor::standalone
