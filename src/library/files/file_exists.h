#pragma once

#include <string>

namespace quiltor {

// Whether the path names a file that can be opened for reading. A folder is not one.
bool fileExists(const std::string& path) noexcept;

}  // namespace quiltor
