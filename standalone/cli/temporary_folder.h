#pragma once

#include <filesystem>

namespace quiltor::standalone {

// A new, empty folder that goes away with everything in it at the end of the scope. Throws CommandFailure.
class TemporaryFolder {
 public:
  TemporaryFolder();
  ~TemporaryFolder();
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;

  [[nodiscard]] const std::filesystem::path& path() const { return path_; }

 private:
  std::filesystem::path path_;
};

}  // namespace quiltor::standalone
