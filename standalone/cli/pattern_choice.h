#pragma once

#include <cstddef>
#include <optional>
#include <string>

#include "formats/ps_pattern.h"

namespace quiltor::standalone {

// "FILE.pat", "FILE.pat#INDEX" or "FILE.pat#NAME", as it is typed.
struct PatternChoice {
  std::string file;
  std::optional<std::string> choice;
};

// Nothing when the text means no Photoshop pattern file. A file whose whole name is the text comes first.
[[nodiscard]] std::optional<PatternChoice> parsePatternChoice(const std::string& text);

// The chosen one among the patterns that could be read, counted from 0 as the files that they are converted to; without
// a choice the only one. A number is an index where the file has one, else a name. Throws UsageError with the nearest
// names or a list of all when the choice fits none or several, and CommandFailure when the file or what was chosen
// cannot be read.
[[nodiscard]] PsPattern choosePattern(const PatternChoice& choice);

}  // namespace quiltor::standalone
