#include "tests/support/file_reads.h"

#include <sys/inotify.h>
#include <unistd.h>

#include <stdexcept>

namespace quiltor::testing_support {

FileReads::FileReads(const std::string& path) : descriptor_(inotify_init1(IN_NONBLOCK | IN_CLOEXEC)) {
  if (descriptor_ >= 0 && inotify_add_watch(descriptor_, path.c_str(), IN_ACCESS) >= 0) return;
  if (descriptor_ >= 0) close(descriptor_);
  throw std::runtime_error(path + ": cannot be watched");
}

FileReads::~FileReads() { close(descriptor_); }

bool FileReads::any() {
  alignas(inotify_event) char events[4096];
  bool found = false;
  while (read(descriptor_, events, sizeof events) > 0) found = true;
  return found;
}

}  // namespace quiltor::testing_support
