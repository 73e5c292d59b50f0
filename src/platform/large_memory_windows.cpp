#include <windows.h>

#include <new>

#include "platform/large_memory.h"

namespace quiltor {

// Large pages need a privilege there that no host asks for.
LargeMemory::LargeMemory(std::size_t bytes) : mappingBytes_(bytes) {
  mapping_ = memory_ = VirtualAlloc(nullptr, bytes == 0 ? 1 : bytes, MEM_RESERVE | MEM_COMMIT, PAGE_READWRITE);
  if (!memory_) throw std::bad_alloc();
}

LargeMemory::~LargeMemory() { VirtualFree(mapping_, 0, MEM_RELEASE); }

}  // namespace quiltor
