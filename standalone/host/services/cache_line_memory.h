#pragma once

#include <cstddef>
#include <new>
#include <vector>

#include "standalone/host/services/large_memory.h"

namespace quiltor::standalone {

// Memory that starts on a cache line.
template <class T>
struct CacheLineAllocator {
  using value_type = T;
  static constexpr std::align_val_t kAlignment{64};

  CacheLineAllocator() = default;
  template <class U>
  explicit CacheLineAllocator(const CacheLineAllocator<U>&) {}
  T* allocate(std::size_t count) {
    const std::size_t bytes = count * sizeof(T);
    return static_cast<T*>(bytes < kLargeMemory ? ::operator new(bytes, kAlignment) : allocateLargeMemory(bytes));
  }
  void deallocate(T* memory, std::size_t count) {
    if (count * sizeof(T) < kLargeMemory) return ::operator delete(memory, kAlignment);
    freeLargeMemory(memory);
  }
  bool operator==(const CacheLineAllocator&) const { return true; }
};

using CacheLineMemory = std::vector<unsigned char, CacheLineAllocator<unsigned char>>;

}  // namespace quiltor::standalone
