#include <fcntl.h>
#include <unistd.h>

#include <cstdio>

#include "platform/redirected_output.h"

namespace quiltor {

const char* const kNullDevice = "/dev/null";

RedirectedOutput::RedirectedOutput(const std::string& path) {
  std::fflush(stdout);
  output_ = dup(STDOUT_FILENO);
  const int file = open(path.c_str(), O_CREAT | O_TRUNC | O_WRONLY | O_CLOEXEC, S_IRUSR | S_IWUSR);
  if (output_ >= 0 && file >= 0) dup2(file, STDOUT_FILENO);
  if (file >= 0) close(file);
}

RedirectedOutput::~RedirectedOutput() {
  std::fflush(stdout);
  if (output_ < 0) return;
  dup2(output_, STDOUT_FILENO);
  close(output_);
}

}  // namespace quiltor
