#include <sys/inotify.h>
#include <unistd.h>

#include <stdexcept>

#include "platform/testing/file_reads.h"

namespace quiltor {

struct FileReads::Watch {
  const int descriptor = inotify_init1(IN_NONBLOCK | IN_CLOEXEC);

  ~Watch() {
    if (descriptor >= 0) close(descriptor);
  }
};

FileReads::FileReads(const std::string& path) : watch_(std::make_unique<Watch>()) {
  if (watch_->descriptor >= 0 && inotify_add_watch(watch_->descriptor, path.c_str(), IN_ACCESS) >= 0) return;
  throw std::runtime_error(path + ": cannot be watched");
}

FileReads::~FileReads() = default;

bool FileReads::any() {
  alignas(inotify_event) char events[4096];
  bool found = false;
  while (read(watch_->descriptor, events, sizeof events) > 0) found = true;
  return found;
}

}  // namespace quiltor
