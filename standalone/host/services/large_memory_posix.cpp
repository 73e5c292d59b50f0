#include <sys/mman.h>

#include <cstdlib>
#include <new>

#include "standalone/host/services/large_memory.h"

namespace quiltor::standalone {

void* allocateLargeMemory(std::size_t bytes) {
  constexpr std::size_t kLargePage = std::size_t{2} << 20;
  // The C library's, so that sanitizers watch the borders.
  void* memory = nullptr;
  if (posix_memalign(&memory, kLargePage, bytes) != 0) throw std::bad_alloc();
  madvise(memory, bytes, MADV_HUGEPAGE);  // a wish: systems without them refuse it
  return memory;
}

void freeLargeMemory(void* memory) noexcept { std::free(memory); }

}  // namespace quiltor::standalone
