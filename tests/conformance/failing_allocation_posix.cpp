// The program's operator new stands in for the library's everywhere, so it counts only while it is armed and only what
// the module's own code asks for.
#include "tests/conformance/failing_allocation.h"

#include <dlfcn.h>

#include <cstdlib>
#include <new>

namespace {

thread_local const void* failingModule = nullptr;
thread_local std::size_t callsUntilFailure = 0;
thread_local bool failureStruck = false;

const void* moduleOf(const void* address) {
  Dl_info info{};
  return dladdr(address, &info) ? info.dli_fbase : nullptr;
}

void* allocate(std::size_t size, const void* caller) {
  if (failingModule && moduleOf(caller) == failingModule && callsUntilFailure-- == 0) {
    failingModule = nullptr;
    failureStruck = true;
    throw std::bad_alloc();
  }
  if (void* memory = std::malloc(size ? size : 1)) return memory;
  throw std::bad_alloc();
}

}  // namespace

void* operator new(std::size_t size) { return allocate(size, __builtin_return_address(0)); }
void* operator new[](std::size_t size) { return allocate(size, __builtin_return_address(0)); }
void operator delete(void* memory) noexcept { std::free(memory); }
void operator delete[](void* memory) noexcept { std::free(memory); }
void operator delete(void* memory, std::size_t) noexcept { std::free(memory); }
void operator delete[](void* memory, std::size_t) noexcept { std::free(memory); }

namespace quiltor {

struct ModuleAllocationFailure::System {};

ModuleAllocationFailure::ModuleAllocationFailure(const void* codeOfTheModule, std::size_t allocationsBefore) {
  callsUntilFailure = allocationsBefore;
  failureStruck = false;
  failingModule = moduleOf(codeOfTheModule);
}

ModuleAllocationFailure::~ModuleAllocationFailure() { failingModule = nullptr; }

bool ModuleAllocationFailure::struck() const { return failureStruck; }

}  // namespace quiltor
