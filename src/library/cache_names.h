#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace quiltor {

// What names a thumbnail: a hash of the printable ASCII characters of the picture's path, separators left out. The
// gallery computes the same.
int32_t pathHash(std::string_view path);

// The file name of a pattern file without its last four characters, which are ".pat".
std::string patternFileName(const std::string& path);

// folder/N/N_00.png and so on for a pattern file's name N, and the folder that they are in.
std::string convertedPatternFolder(const std::string& folder, const std::string& name);
std::string convertedPatternPath(const std::string& folder, const std::string& name, size_t index);

}  // namespace quiltor
