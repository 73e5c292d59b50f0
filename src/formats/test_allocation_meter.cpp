#include "formats/test_allocation_meter.h"

#include <malloc.h>

#include <atomic>
#include <cstdlib>
#include <new>

namespace quiltor {
namespace {

#ifdef _WIN32
size_t usableSize(void* memory) { return _msize(memory); }
#else
size_t usableSize(void* memory) { return malloc_usable_size(memory); }
#endif

std::atomic<int64_t> allocated = 0;
std::atomic<int64_t> mostAllocated = 0;

void count(void* memory) {
  const int64_t now = allocated += static_cast<int64_t>(usableSize(memory));
  if (now > mostAllocated) mostAllocated = now;
}

void uncount(void* memory) { allocated -= static_cast<int64_t>(usableSize(memory)); }

}  // namespace

AllocationMeter::AllocationMeter() : before_(allocated) { mostAllocated = before_; }
int64_t AllocationMeter::peak() const { return mostAllocated - before_; }

}  // namespace quiltor

void* operator new(std::size_t size) {
  void* const memory = std::malloc(size ? size : 1);
  if (!memory) throw std::bad_alloc();
  quiltor::count(memory);
  return memory;
}

void operator delete(void* memory) noexcept {
  if (memory) quiltor::uncount(memory);
  std::free(memory);
}

void operator delete(void* memory, std::size_t) noexcept { operator delete(memory); }
