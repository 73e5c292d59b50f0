#include <new>

#include "standalone/host/services/large_memory.h"

namespace quiltor::standalone {
namespace {

constexpr std::align_val_t kCacheLine{64};

}  // namespace

// Large pages take a privilege that ordinary users do not have.
void* allocateLargeMemory(std::size_t bytes) { return ::operator new(bytes, kCacheLine); }

void freeLargeMemory(void* memory) noexcept { ::operator delete(memory, kCacheLine); }

}  // namespace quiltor::standalone
