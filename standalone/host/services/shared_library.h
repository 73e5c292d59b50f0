#pragma once

#include <filesystem>
#include <string>

namespace quiltor::standalone {

// Loads a shared library for as long as the program runs. Null, and why, when that cannot be done.
void* loadLibrary(const std::filesystem::path& path, std::string& problem);

// For a library that turned out to be of no use.
void unloadLibrary(void* library);

// The address that a library exports by a name; null when it exports none.
void* exportedAddress(void* library, const char* name);

// The file of the running program; empty when the system cannot tell.
std::filesystem::path programPath();

}  // namespace quiltor::standalone
