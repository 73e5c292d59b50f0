#include <windows.h>

#include <mutex>

#include "platform/named_mutex.h"

namespace quiltor {

// The plain mutex serves where the system gives no shared one.
struct NamedMutex::State {
  HANDLE shared = nullptr;
  std::mutex threads;
  bool isShared = false;  // how the owner holds it
};

NamedMutex::NamedMutex(const std::string& name) : state_(std::make_unique<State>()) {
  state_->shared = CreateMutexA(nullptr, FALSE, name.c_str());
  // One that a program with more rights made may be used, though not made again.
  if (!state_->shared) state_->shared = OpenMutexA(SYNCHRONIZE | MUTEX_MODIFY_STATE, FALSE, name.c_str());
}

NamedMutex::~NamedMutex() {
  if (state_->shared) CloseHandle(state_->shared);
}

void NamedMutex::lock() {
  const DWORD result = state_->shared ? WaitForSingleObject(state_->shared, INFINITE) : WAIT_FAILED;
  // Whoever abandoned it died; it is ours.
  const bool isShared = result == WAIT_OBJECT_0 || result == WAIT_ABANDONED;
  if (!isShared) state_->threads.lock();
  state_->isShared = isShared;
}

void NamedMutex::unlock() {
  if (state_->isShared) {
    ReleaseMutex(state_->shared);
  } else {
    state_->threads.unlock();
  }
}

}  // namespace quiltor
