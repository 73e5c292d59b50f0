#include "platform/named_mutex_posix.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <mutex>

#include "platform/named_mutex.h"

namespace quiltor {

std::string lockFilePath(const std::string& name) {
  return P_tmpdir "/quiltor-" + name + "-" + std::to_string(getuid()) + ".lock";
}

namespace {

// -1 when there is no file that is ours alone: in a folder that all users write to, another user's file of that name
// could be kept locked for ever.
int openLockFile(const std::string& path) {
  const int descriptor = open(path.c_str(), O_RDONLY | O_CREAT | O_CLOEXEC | O_NOFOLLOW, S_IRUSR | S_IWUSR);
  if (descriptor < 0) return -1;
  struct stat status;
  if (fstat(descriptor, &status) == 0 && S_ISREG(status.st_mode) && status.st_uid == getuid()) return descriptor;
  close(descriptor);
  return -1;
}

bool lockFile(int descriptor) {
  int result;
  do {
    result = flock(descriptor, LOCK_EX);
  } while (result != 0 && errno == EINTR);
  return result == 0;
}

// A lock on a file that was deleted, as temporary folders are swept, excludes nobody who comes later.
bool wasDeleted(int descriptor) {
  struct stat status;
  return fstat(descriptor, &status) == 0 && status.st_nlink == 0;
}

}  // namespace

// A file lock belongs to the open file, so the processes exclude one another, but threads that use one descriptor do
// not: they wait for the plain mutex first.
struct NamedMutex::State {
  std::string path;
  std::mutex threads;
  int descriptor = -1;
};

NamedMutex::NamedMutex(const std::string& name) : state_(std::make_unique<State>()) {
  state_->path = lockFilePath(name);
}

NamedMutex::~NamedMutex() {
  if (state_->descriptor >= 0) close(state_->descriptor);
}

void NamedMutex::lock() {
  state_->threads.lock();
  while (true) {
    if (state_->descriptor < 0) state_->descriptor = openLockFile(state_->path);
    if (state_->descriptor < 0 || !lockFile(state_->descriptor) || !wasDeleted(state_->descriptor)) return;
    close(state_->descriptor);
    state_->descriptor = -1;
  }
}

void NamedMutex::unlock() {
  if (state_->descriptor >= 0) flock(state_->descriptor, LOCK_UN);
  state_->threads.unlock();
}

}  // namespace quiltor
