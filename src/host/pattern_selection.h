#pragma once

#include <string>
#include <string_view>

namespace quiltor {

// An instance keeps the pattern that the user picked as text: image path, library label and library name, separated by
// "*****". Turns it into a pattern reference: path, "*", label, "*", name, "*". Missing fields are empty; a selection
// without a path gives an empty reference.
std::string referenceFromSelection(std::string_view selection);

}  // namespace quiltor
