#pragma once

#include <cstddef>
#include <new>
#include <vector>

namespace quiltor::standalone {

// Memory that starts on a cache line.
template <class T>
struct CacheLineAllocator {
  using value_type = T;
  static constexpr std::align_val_t kAlignment{64};

  CacheLineAllocator() = default;
  template <class U>
  explicit CacheLineAllocator(const CacheLineAllocator<U>&) {}
  T* allocate(std::size_t count) { return static_cast<T*>(::operator new(count * sizeof(T), kAlignment)); }
  void deallocate(T* memory, std::size_t) { ::operator delete(memory, kAlignment); }
  bool operator==(const CacheLineAllocator&) const { return true; }
};

using CacheLineMemory = std::vector<unsigned char, CacheLineAllocator<unsigned char>>;

}  // namespace quiltor::standalone
