#pragma once

#include <cstddef>

namespace quiltor {

// A thread with a small stack, for work that is over soon: the system keeps small stacks of ended threads for the next
// ones, while a stack of the usual size is mapped and given back each time.
class SmallThread {
 public:
  static constexpr std::size_t kStackBytes = 256 * 1024;

  SmallThread() = default;
  // Waits for the thread's end.
  ~SmallThread();
  SmallThread(const SmallThread&) = delete;
  SmallThread& operator=(const SmallThread&) = delete;

  // Starts work(argument), which throws nothing. False when the system has no thread for it. At most once.
  bool start(void (*work)(void* argument) noexcept, void* argument);

 private:
  void (*work_)(void*) noexcept = nullptr;
  void* argument_ = nullptr;
  unsigned long long thread_ = 0;
};

}  // namespace quiltor
