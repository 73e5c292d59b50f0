#pragma once

#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <string>
#include <system_error>

namespace quiltor {

// fopen for a UTF-8 path, whose separators are "/" and "\". mode is the C library's. Null when the path cannot be
// opened, and for a folder. Never throws.
std::FILE* openFile(const std::string& path, const char* mode) noexcept;

// Adds a line at the end of a text file, which is made where there is none, with the system's end of a line and in one
// step: the lines of several threads and processes do not mix. False when the system refuses. Never throws.
bool appendLine(const std::string& path, std::string&& line) noexcept;

// How many bytes an open file holds; 0 when the system cannot tell. Leaves the position alone. Never throws.
int64_t fileSize(std::FILE* file);

// Closes a file that was written. False when not all of it arrived, whatever the C library says: not every one tells,
// when it closes a file, that the bytes that it kept back found no room. Never throws.
inline bool closeWritten(std::FILE* file) noexcept {
  const bool isWritten = std::fflush(file) == 0;
  return std::fclose(file) == 0 && isWritten;
}

// Gives a file another name in one step: whoever opens that name meets the file that had it before or the whole new
// one. Where a file that is open cannot be replaced, waits a moment for its end. False when the system refuses. Never
// throws.
bool replaceFile(const std::string& from, const std::string& to) noexcept;

// The same for paths as the system has them, and why it refuses.
std::error_code replaceFile(const std::filesystem::path& from, const std::filesystem::path& to) noexcept;

// Deletes a file if it is there. Never throws.
void removeFile(const std::string& path) noexcept;

}  // namespace quiltor
