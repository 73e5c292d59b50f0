#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "formats/ps_pattern.h"

namespace quiltor {

struct ConversionProgress {
  size_t total = 0;     // pattern files and pictures that were found
  size_t done = 0;      // of these, those converted, skipped or failed
  size_t made = 0;      // pictures of patterns and thumbnails
  size_t failures = 0;  // lines of the log that tell of one
  // Of the file that was done last, as long as progress is told. What cannot be read is no failure and not logged.
  std::string_view file;
  bool isUnreadable = false;                  // there is no picture in it, or no pattern file
  const PatternFileReport* report = nullptr;  // of a pattern file that was not skipped
};

// Makes PNG files of all Photoshop patterns below patternFolders, and thumbnails of the pictures in imageFolders, both
// in the data folder of all users and both only where they are missing. Logs what it converts and what fails, and goes
// on with the next. A pattern file counts as converted when the picture of its first pattern is there, so that one
// comes last. Never throws. Several may run at once, in one process or in several. progress is called with each step.
void convertLibraryFiles(const std::vector<std::string>& imageFolders, const std::vector<std::string>& patternFolders,
                         const std::function<void(const ConversionProgress&)>& progress = {}) noexcept;

// Starts the conversion of what the library's files name, on a thread of its own, and returns at once. Without a list
// of libraries nothing is converted. The module stays loaded from the first conversion on, whatever the host unloads.
void startLibraryConversion() noexcept;

}  // namespace quiltor
