#pragma once

#include <memory>
#include <string>

namespace quiltor {

// Tells whether this process reads a file from here on. The file must exist; throws std::runtime_error otherwise.
class FileReads {
 public:
  explicit FileReads(const std::string& path);
  ~FileReads();
  FileReads(const FileReads&) = delete;
  FileReads& operator=(const FileReads&) = delete;

  // Whether it was read since the last time that this was asked. Opening it alone does not count.
  [[nodiscard]] bool any();

 private:
  struct Watch;
  std::unique_ptr<Watch> watch_;
};

}  // namespace quiltor
