#include "platform/small_thread.h"

#include <gtest/gtest.h>

#include <array>
#include <atomic>

namespace quiltor {
namespace {

void count(void* counter) noexcept { ++*static_cast<std::atomic<int>*>(counter); }

TEST(SmallThread, HasDoneItsWorkWhenItIsGone) {
  std::atomic<int> done = 0;
  {
    std::array<SmallThread, 32> threads;
    for (SmallThread& thread : threads) ASSERT_TRUE(thread.start(&count, &done));
  }
  EXPECT_EQ(done, 32);
}

TEST(SmallThread, NeedsNotBeStarted) { const SmallThread thread; }

TEST(SmallThread, HasRoomForMostOfItsStack) {
  SmallThread thread;
  ASSERT_TRUE(thread.start(
      [](void*) noexcept {
        volatile char room[SmallThread::kStackBytes / 2];
        for (size_t i = 0; i < sizeof room; i += 1024) room[i] = 1;
      },
      nullptr));
}

}  // namespace
}  // namespace quiltor
