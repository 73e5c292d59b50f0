#pragma once

#include <string>
#include <vector>

namespace quiltor {

// Nothing here throws.

// The file's bytes. Empty when the path is empty or the file cannot be opened.
std::string readWholeFile(const std::string& path) noexcept;

// The lines that are not empty; lines is cleared first. Lines end at line feeds only: a carriage return before one
// stays, and a line of nothing else is not empty. -1 for an empty path; else 0, without lines when the file cannot be
// read.
int readTextLines(const std::string& path, std::vector<std::string>& lines) noexcept;

}  // namespace quiltor
