#pragma once

#include <string>

namespace quiltor {

// Where the picture of a pattern reference is (image path, "*", library label, "*", library name, "*"): where it was,
// or else in the library of the same label and name, the last one in the list, under the same file name. The path of
// one that is nowhere stays as it was.
std::string findPattern(const std::string& reference);

}  // namespace quiltor
