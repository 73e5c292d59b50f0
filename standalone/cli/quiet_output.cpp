#include "standalone/cli/quiet_output.h"

#include <fcntl.h>
#include <unistd.h>

#include <cstdio>

namespace quiltor::standalone {

QuietOutput::QuietOutput() {
  std::fflush(stdout);
  output_ = dup(STDOUT_FILENO);
  const int nowhere = open("/dev/null", O_WRONLY | O_CLOEXEC);
  if (output_ >= 0 && nowhere >= 0) dup2(nowhere, STDOUT_FILENO);
  if (nowhere >= 0) close(nowhere);
}

QuietOutput::~QuietOutput() {
  std::fflush(stdout);
  if (output_ < 0) return;
  dup2(output_, STDOUT_FILENO);
  close(output_);
}

}  // namespace quiltor::standalone
