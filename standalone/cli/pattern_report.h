#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "formats/ps_pattern.h"

namespace quiltor::standalone {

// The patterns of a Photoshop pattern file, and in words what of it could not be read.
struct PatternsOfFile {
  PsPatterns patterns;
  PatternFileReport report;
  bool refused = false;  // no pattern file at all; report.problem says why
};

// Reads the whole file. Prints the names of the patterns, so the caller needs a QuietOutput: the standard output is the
// whole process's, and several files may be read at once.
[[nodiscard]] PatternsOfFile readPatterns(const std::string& path);

// `4th pattern "Bricks"`: by its place in the file from 0, unreadable patterns counted.
[[nodiscard]] std::string describePlace(std::size_t place, std::string_view name);

// The place of each pattern that was read.
[[nodiscard]] std::vector<std::size_t> placesOf(const PatternsOfFile& file);

// One text for everything that could not be read. refused: that is the whole file.
[[nodiscard]] std::vector<std::string> describeFailures(const PatternFileReport& report, bool refused);

// Whether a path's name ends like one of a Photoshop pattern file.
[[nodiscard]] bool endsAsPatternFile(std::string_view path);

}  // namespace quiltor::standalone
