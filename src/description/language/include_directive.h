#pragma once

#include <functional>
#include <string>
#include <string_view>

namespace quiltor {

// Gives the contents of an included file, or throws std::runtime_error when it cannot be read.
using IncludeReader = std::function<std::string(const std::string& path)>;

// Reads from the disk; a relative path starts at the process's current folder.
std::string readIncludedFile(const std::string& path);

// Replaces every "#include" by the contents of the file that the rest of its line names, in those contents too. The
// line itself stays as a comment. Throws what the reader throws, and std::runtime_error when files include one another
// without end.
std::string expandIncludes(std::string_view text, const IncludeReader& read);

}  // namespace quiltor
