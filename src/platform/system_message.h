#pragma once

#include <filesystem>
#include <string>
#include <system_error>

namespace quiltor {

// The system's words about an error with a file, without a line's end or a full stop. Deliberate: the error's own
// message() is not used, since on Windows it is in the system's code page. Throws std::bad_alloc alone.
std::string systemMessage(const std::error_code& error, const std::filesystem::path& file);

}  // namespace quiltor
