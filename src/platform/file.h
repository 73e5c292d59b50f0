#pragma once

#include <cstdint>
#include <cstdio>
#include <string>

namespace quiltor {

// fopen for a UTF-8 path. mode is the C library's. Null when the path cannot be opened, and for a folder. Never throws.
std::FILE* openFile(const std::string& path, const char* mode);

// How many bytes an open file holds; 0 when the system cannot tell. Leaves the position alone. Never throws.
int64_t fileSize(std::FILE* file);

}  // namespace quiltor
