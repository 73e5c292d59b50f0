#pragma once

#include <filesystem>
#include <ostream>
#include <string>
#include <vector>

namespace quiltor::standalone {

struct ValidateOptions {
  std::filesystem::path module;     // empty: the module beside the program
  std::vector<std::string> checks;  // none: all
  bool list = false;                // only names the checks
  bool json = false;
  double timeLimit = 60;         // seconds, of each check
  bool inProcess = false;        // in this process, for a debugger
  std::filesystem::path result;  // with inProcess: where the waiting process looks for the result
};

// Checks any effect module against the rules that a host relies on and prints a report. False when it broke one.
// Throws UsageError.
[[nodiscard]] bool runValidate(const ValidateOptions& options, std::ostream& out);

}  // namespace quiltor::standalone
