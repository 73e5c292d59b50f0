#pragma once

#include <filesystem>
#include <random>
#include <string>
#include <system_error>

#include "base/utf8_path.h"

namespace quiltor {

// For tests: a new, empty folder that goes away with everything in it at the end of the scope.
class ScratchFolder {
 public:
  ScratchFolder() {
    std::random_device random;
    path_ = std::filesystem::temp_directory_path() /
            ("quiltor-test-" + std::to_string(random()) + "-" + std::to_string(random()));
    std::filesystem::create_directories(path_);
  }
  ~ScratchFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }
  ScratchFolder(const ScratchFolder&) = delete;
  ScratchFolder& operator=(const ScratchFolder&) = delete;

  std::string path() const { return genericUtf8FromPath(path_); }
  // The path of a file or folder in here, made or not.
  std::string path(const std::string& name) const { return path() + "/" + name; }

 private:
  std::filesystem::path path_;
};

}  // namespace quiltor
