#include "platform/large_memory.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>
#include <new>

namespace quiltor {
namespace {

TEST(LargeMemory, IsAlignedAndCanBeFilled) {
  for (const std::size_t bytes : {std::size_t{0}, std::size_t{1}, std::size_t{5} << 20, (std::size_t{2} << 20) + 1}) {
    const LargeMemory memory(bytes);
    EXPECT_EQ(reinterpret_cast<std::uintptr_t>(memory.get()) % 64, 0u);
    std::memset(memory.get(), 7, bytes);
  }
}

TEST(LargeMemory, ThrowsWhenThereIsNotSoMuch) {
  EXPECT_THROW(LargeMemory(SIZE_MAX / 2), std::bad_alloc);
  EXPECT_THROW(LargeMemory(SIZE_MAX), std::bad_alloc);
}

}  // namespace
}  // namespace quiltor
