#include <sys/mman.h>

#include <cstdint>
#include <new>

#include "platform/large_memory.h"

namespace quiltor {
namespace {

constexpr std::size_t kLargePage = std::size_t{2} << 20;

}  // namespace

LargeMemory::LargeMemory(std::size_t bytes) {
  if (bytes > SIZE_MAX - 2 * kLargePage) throw std::bad_alloc();
  // Large pages begin at multiples of their size.
  mappingBytes_ = bytes + kLargePage;
  mapping_ = mmap(nullptr, mappingBytes_, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
  if (mapping_ == MAP_FAILED) throw std::bad_alloc();
  const auto address = reinterpret_cast<std::uintptr_t>(mapping_);
  memory_ = static_cast<char*>(mapping_) + (kLargePage - address % kLargePage) % kLargePage;
#ifdef MADV_HUGEPAGE
  if (bytes >= kLargePage) madvise(memory_, bytes / kLargePage * kLargePage, MADV_HUGEPAGE);
#endif
}

LargeMemory::~LargeMemory() { munmap(mapping_, mappingBytes_); }

}  // namespace quiltor
