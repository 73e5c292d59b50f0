// Workers in a process whose memory ends. The allocation functions of this whole program are replaced.
#include <gtest/gtest.h>

#include <atomic>
#include <cstdlib>
#include <new>
#include <vector>

#include "render/worker_threads.h"

namespace {

// How many more allocations of this thread succeed; negative for all.
thread_local int allocationsLeft = -1;

void* allocate(std::size_t size) {
  if (allocationsLeft == 0) throw std::bad_alloc();
  if (allocationsLeft > 0) --allocationsLeft;
  if (void* memory = std::malloc(size ? size : 1)) return memory;
  throw std::bad_alloc();
}

}  // namespace

void* operator new(std::size_t size) { return allocate(size); }
void* operator new[](std::size_t size) { return allocate(size); }
void operator delete(void* memory) noexcept { std::free(memory); }
void operator delete[](void* memory) noexcept { std::free(memory); }
void operator delete(void* memory, std::size_t) noexcept { std::free(memory); }
void operator delete[](void* memory, std::size_t) noexcept { std::free(memory); }

namespace quiltor {
namespace {

TEST(WorkersWithoutMemory, DoTheirRowsOnTheThreadThatCalled) {
  for (int allocations = 0; allocations < 40; ++allocations) {
    std::vector<std::atomic<int>> visits(100);
    const std::function<void(int32_t, int32_t)> work = [&](int32_t first, int32_t end) {
      for (int32_t row = first; row < end; ++row) ++visits[static_cast<size_t>(row)];
    };
    allocationsLeft = allocations;
    runOnWorkers(100, work);
    allocationsLeft = -1;
    for (const auto& count : visits) ASSERT_EQ(count, 1) << allocations << " allocations";
  }
}

}  // namespace
}  // namespace quiltor
