#pragma once

#include <utility>

#include "hostapi/suites_pf.h"

namespace quiltor {

// A locked host handle. get() is null when there is no handle or when the host could not lock it; null is never passed
// to the host.
class HandleLock {
 public:
  HandleLock(const PF_HandleSuite1& handles, PF_Handle handle)
      : handles_(handles), handle_(handle), data_(handle ? handles.host_lock_handle(handle) : nullptr) {}
  ~HandleLock() {
    if (data_) handles_.host_unlock_handle(handle_);
  }
  HandleLock(const HandleLock&) = delete;
  HandleLock& operator=(const HandleLock&) = delete;

  explicit operator bool() const { return data_ != nullptr; }
  void* get() const { return data_; }
  template <class Record>
  Record* as() const {
    return static_cast<Record*>(data_);
  }

 private:
  const PF_HandleSuite1& handles_;
  PF_Handle handle_;
  void* data_;
};

// A host handle that is disposed at the end of the scope unless it was handed on with release(). Declare it before the
// HandleLock on it: the lock has to go first.
class OwnedHandle {
 public:
  OwnedHandle(const PF_HandleSuite1& handles, A_HandleSize size)
      : handles_(handles), handle_(handles.host_new_handle(size)) {}
  ~OwnedHandle() {
    if (handle_) handles_.host_dispose_handle(handle_);
  }
  OwnedHandle(const OwnedHandle&) = delete;
  OwnedHandle& operator=(const OwnedHandle&) = delete;

  explicit operator bool() const { return handle_ != nullptr; }
  PF_Handle get() const { return handle_; }
  PF_Handle release() { return std::exchange(handle_, nullptr); }

 private:
  const PF_HandleSuite1& handles_;
  PF_Handle handle_;
};

}  // namespace quiltor
