#pragma once

#include <cstddef>
#include <memory>

namespace quiltor {

// For tests: until the end of the scope, one allocation of this thread fails: that before which the module that has the
// code made so many others.
class ModuleAllocationFailure {
 public:
  ModuleAllocationFailure(const void* codeOfTheModule, std::size_t allocationsBefore);
  ~ModuleAllocationFailure();
  ModuleAllocationFailure(const ModuleAllocationFailure&) = delete;
  ModuleAllocationFailure& operator=(const ModuleAllocationFailure&) = delete;

  // Whether there were so many.
  [[nodiscard]] bool struck() const;

 private:
  struct System;
  std::unique_ptr<System> system_;
};

}  // namespace quiltor
