#include <unistd.h>

#include "platform/testing/closing_left_files.h"

namespace quiltor {
namespace {

int nextDescriptor() {
  const int descriptor = dup(STDERR_FILENO);
  close(descriptor);
  return descriptor;
}

}  // namespace

int32_t closingLeftFiles(const std::function<int32_t()>& work) {
  const int first = nextDescriptor();
  const int32_t result = work();
  const int after = nextDescriptor();
  for (int descriptor = first; descriptor < after; ++descriptor) close(descriptor);
  return result;
}

}  // namespace quiltor
