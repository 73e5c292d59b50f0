#pragma once

#include <cstddef>
#include <string>
#include <thread>
#include <vector>

#include "standalone/cli/console.h"

namespace quiltor::standalone {

struct ConvertOptions {
  std::vector<std::string> sources;  // pattern files, and folders that are searched for them
  std::string output;                // the folder
  // How many files are read, or pictures written, at once. What is made and told does not depend on it.
  std::size_t atOnce = std::thread::hardware_concurrency();
};

// Makes a PNG file of every pattern, output/N/N_00.png and so on for a file N.pat. What fails is told on one line and
// does not stop the others. False when anything failed. Throws CommandFailure when the output cannot be a folder.
[[nodiscard]] bool runConvert(const ConvertOptions& options, const Console& console);

}  // namespace quiltor::standalone
