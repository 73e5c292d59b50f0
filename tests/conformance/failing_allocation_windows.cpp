// A module brings operator new of its own there, which asks the C library for memory.
#include "tests/conformance/failing_allocation.h"

#include <windows.h>

#include <cstdlib>

#include "platform/testing/import_hook_windows.h"

namespace quiltor {
namespace {

std::size_t callsUntilFailure = 0;
bool failureStruck = false;
DWORD failingThread = 0;

void* allocate(std::size_t size) {
  if (!failureStruck && GetCurrentThreadId() == failingThread && callsUntilFailure-- == 0) {
    failureStruck = true;
    return nullptr;
  }
  return std::malloc(size);
}

void* moduleOf(const void* address) {
  HMODULE module = nullptr;
  GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT | GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS,
                     static_cast<LPCWSTR>(address), &module);
  return module;
}

}  // namespace

struct ModuleAllocationFailure::System {
  ImportHook malloc;
};

ModuleAllocationFailure::ModuleAllocationFailure(const void* codeOfTheModule, std::size_t allocationsBefore) {
  callsUntilFailure = allocationsBefore;
  failureStruck = false;
  failingThread = GetCurrentThreadId();
  system_.reset(new System{{"malloc", reinterpret_cast<void*>(&allocate), moduleOf(codeOfTheModule)}});
}

ModuleAllocationFailure::~ModuleAllocationFailure() = default;

bool ModuleAllocationFailure::struck() const { return failureStruck; }

}  // namespace quiltor
