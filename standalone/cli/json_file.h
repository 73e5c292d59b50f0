#pragma once

#include <filesystem>
#include <nlohmann/json.hpp>
#include <string>

namespace quiltor::standalone {

// The content of a JSON file, in which no object has a member twice and nothing is nested deeper than anyone writes.
// `expected` says what the file should hold. Throws CommandFailure.
[[nodiscard]] nlohmann::json readJson(const std::filesystem::path& path, const std::string& expected);

}  // namespace quiltor::standalone
