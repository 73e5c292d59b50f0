#pragma once

#include <filesystem>
#include <string>

namespace CLI {
class App;
class Option;
}  // namespace CLI

namespace quiltor::standalone {

// An option or argument that is a path.
CLI::Option* addPath(CLI::App& command, const std::string& name, std::filesystem::path& path, const std::string& text);

// Throws UsageError, which names the option, unless the path ends in .png.
void requirePngName(const std::string& option, const std::filesystem::path& path);

// A folder without the separators at its end; a root keeps its own.
[[nodiscard]] std::string withoutSeparatorAtEnd(const std::filesystem::path& folder);

}  // namespace quiltor::standalone
