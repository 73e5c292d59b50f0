#include "platform/shared_work.h"

#include <gtest/gtest.h>

#include <array>
#include <atomic>
#include <chrono>
#include <mutex>
#include <set>
#include <thread>
#include <vector>

namespace quiltor {
namespace {

struct Visits {
  std::mutex mutex;
  std::set<std::thread::id> threads;
  std::atomic<int> begun = 0, ended = 0;

  static void visit(void* self) noexcept {
    auto& visits = *static_cast<Visits*>(self);
    ++visits.begun;
    {
      const std::lock_guard lock(visits.mutex);
      visits.threads.insert(std::this_thread::get_id());
    }
    std::this_thread::sleep_for(std::chrono::milliseconds(30));
    ++visits.ended;
  }
};

TEST(SharedWork, RunsOnTheCallingThreadAndBesideIt) {
  Visits visits;
  shareWork(32, &Visits::visit, &visits);
  EXPECT_TRUE(visits.threads.contains(std::this_thread::get_id()));
  EXPECT_GT(visits.threads.size(), 1u);
  EXPECT_LE(visits.threads.size(), 33u);
}

TEST(SharedWork, HasEndedEverywhereWhenItReturns) {
  for (int i = 0; i < 10; ++i) {
    Visits visits;
    shareWork(8, &Visits::visit, &visits);
    EXPECT_EQ(visits.begun, visits.ended);
  }
}

TEST(SharedWork, HelpsSeveralCallersAtOnce) {
  std::array<Visits, 4> visits;
  {
    std::vector<std::jthread> callers;
    for (Visits& mine : visits) {
      callers.emplace_back([&mine] {
        for (int i = 0; i < 5; ++i) {
          shareWork(8, &Visits::visit, &mine);
          EXPECT_EQ(mine.begun, mine.ended);
        }
      });
    }
  }
  for (const Visits& mine : visits) EXPECT_GE(mine.begun, 5);
}

TEST(SharedWork, WithoutHelpersIsTheCallersOwn) {
  Visits visits;
  shareWork(0, &Visits::visit, &visits);
  EXPECT_EQ(visits.threads, std::set{std::this_thread::get_id()});
}

TEST(SharedWork, HasRoomForMostOfAHelpersStack) {
  shareWork(
      4,
      [](void*) noexcept {
        volatile char room[kHelperStackBytes / 2];
        for (size_t i = 0; i < sizeof room; i += 1024) room[i] = 1;
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
      },
      nullptr);
}

}  // namespace
}  // namespace quiltor
