#pragma once

#include <string>

namespace quiltor {

// The file that swallows what is written to it.
extern const char* const kNullDevice;

// Until the end of the scope, what is printed to the C library's standard output goes to a file, which is made or
// emptied. It goes where it went before when the file cannot be opened.
class RedirectedOutput {
 public:
  explicit RedirectedOutput(const std::string& path);
  ~RedirectedOutput();
  RedirectedOutput(const RedirectedOutput&) = delete;
  RedirectedOutput& operator=(const RedirectedOutput&) = delete;

 private:
  int output_;  // the standard output as it was
};

}  // namespace quiltor
