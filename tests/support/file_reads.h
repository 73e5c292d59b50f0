#pragma once

#include <string>

namespace quiltor::testing_support {

// Tells whether a file is read, by whomever, from here on. The file must exist; throws std::runtime_error otherwise.
class FileReads {
 public:
  explicit FileReads(const std::string& path);
  ~FileReads();
  FileReads(const FileReads&) = delete;
  FileReads& operator=(const FileReads&) = delete;

  // Whether bytes of it were read since the last time that this was asked. Opening it alone does not count.
  [[nodiscard]] bool any();

 private:
  int descriptor_;
};

}  // namespace quiltor::testing_support
