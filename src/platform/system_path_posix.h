#pragma once

#include <string>

namespace quiltor {

// The path as the system wants it: with its own separators only.
std::string systemPath(const std::string& path);

}  // namespace quiltor
