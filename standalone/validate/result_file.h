#pragma once

#include <filesystem>
#include <fstream>
#include <optional>
#include <string>
#include <vector>

#include "standalone/validate/check.h"

namespace quiltor::standalone {

// How the process that runs a check tells the one that waits for it: the files FOLDER/progress, which holds what is
// going on, and FOLDER/result, which is there when the check ran to its end.

// What a finished check leaves.
struct CheckOutcome {
  std::vector<std::string> problems = {};
  std::size_t trials = 0;
  std::string inapplicability = {};
};

[[nodiscard]] CheckOutcome outcomeOf(const CheckRun& run);

// The child's side. Each line takes the place of the one before it.
class ProgressFile {
 public:
  explicit ProgressFile(const std::filesystem::path& folder);
  void write(const std::string& line);

 private:
  std::ofstream file_;
};
// Throws std::runtime_error when it cannot be written.
void writeResult(const std::filesystem::path& folder, const CheckOutcome& outcome);

// The parent's side: empty, and nothing, without a readable file.
[[nodiscard]] std::string readProgress(const std::filesystem::path& folder);
[[nodiscard]] std::optional<CheckOutcome> readResult(const std::filesystem::path& folder);

}  // namespace quiltor::standalone
