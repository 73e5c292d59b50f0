#pragma once

#include <memory>
#include <string>

namespace quiltor {

// A mutex that all threads of all of a user's processes share by its name (letters and digits). The system frees it
// when its owner dies. Not recursive. lock() waits without a time limit. Where the system refuses the shared part, the
// threads that use this object still exclude one another. Meets the standard's BasicLockable, for std::lock_guard.
class NamedMutex {
 public:
  explicit NamedMutex(const std::string& name);
  ~NamedMutex();
  NamedMutex(const NamedMutex&) = delete;
  NamedMutex& operator=(const NamedMutex&) = delete;

  void lock();
  void unlock();

 private:
  struct State;
  std::unique_ptr<State> state_;
};

}  // namespace quiltor
