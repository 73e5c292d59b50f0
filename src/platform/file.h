#pragma once

#include <cstdio>
#include <string>

namespace quiltor {

// fopen for a UTF-8 path. mode is the C library's.
std::FILE* openFile(const std::string& path, const char* mode);

}  // namespace quiltor
