#pragma once

#include <string>
#include <string_view>

namespace quiltor {

// The pattern that the user picked. An instance keeps it as text, the three separated by "*****".
struct PatternSelection {
  std::string path;
  std::string libraryLabel;
  std::string libraryName;
};

// Missing fields are empty.
PatternSelection parseSelection(std::string_view text);
std::string selectionText(const PatternSelection& selection);

// Turns the text of a selection into a pattern reference: path, "*", label, "*", name, "*". A selection without a path
// gives an empty reference.
std::string referenceFromSelection(std::string_view text);

}  // namespace quiltor
