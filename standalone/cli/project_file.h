#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace quiltor::standalone {

// What a project keeps of an instance: its flat data, in a file. Nothing without a path or a file. Throws
// CommandFailure for a file that cannot be read.
[[nodiscard]] std::optional<std::vector<unsigned char>> readProject(const std::filesystem::path& path);

// Leaves what was there when the new data cannot be written, and throws CommandFailure.
void writeProject(const std::filesystem::path& path, const std::vector<unsigned char>& flat);

// The steps of an automation. Throws CommandFailure for a file that cannot be read.
[[nodiscard]] std::string readSteps(const std::filesystem::path& path);

}  // namespace quiltor::standalone
