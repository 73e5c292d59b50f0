#pragma once

#include <cstdint>
#include <initializer_list>

#include "base/checked_size.h"
#include "host/handle_guards.h"
#include "host/host_error.h"

namespace quiltor {

// Memory from the host, locked for as long as this lives. Its size is the product of the factors; a product that
// overflows, and memory that the host does not have, throw the host's code for that.
class HostBuffer {
 public:
  HostBuffer(const PF_HandleSuite1& handles, std::initializer_list<int64_t> factors)
      : handle_(handles, sizeOf(factors)), lock_(handles, handle_.get()) {
    if (!lock_) throwHostError(PF_Err_OUT_OF_MEMORY);
  }

  void* get() const { return lock_.get(); }

 private:
  static A_HandleSize sizeOf(std::initializer_list<int64_t> factors) {
    const auto size = checkedProduct(factors);
    if (!size) throwHostError(PF_Err_OUT_OF_MEMORY);
    return static_cast<A_HandleSize>(*size);
  }

  OwnedHandle handle_;
  HandleLock lock_;
};

}  // namespace quiltor
