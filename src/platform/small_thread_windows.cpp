#include <process.h>
#include <windows.h>

#include <cstdint>

#include "platform/small_thread.h"

namespace quiltor {

SmallThread::~SmallThread() {
  if (!work_) return;
  const auto thread = reinterpret_cast<HANDLE>(static_cast<uintptr_t>(thread_));
  WaitForSingleObject(thread, INFINITE);
  CloseHandle(thread);
}

bool SmallThread::start(void (*work)(void*) noexcept, void* argument) {
  work_ = work;
  argument_ = argument;
  const auto run = [](void* self) -> unsigned {
    const auto& started = *static_cast<SmallThread*>(self);
    started.work_(started.argument_);
    return 0;
  };
  thread_ = _beginthreadex(nullptr, kStackBytes, run, this, STACK_SIZE_PARAM_IS_A_RESERVATION, nullptr);
  if (thread_ == 0) work_ = nullptr;
  return thread_ != 0;
}

}  // namespace quiltor
