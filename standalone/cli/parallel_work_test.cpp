#include "standalone/cli/parallel_work.h"

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <stdexcept>
#include <thread>
#include <vector>

namespace quiltor::standalone {
namespace {

TEST(ParallelWork, RunsSoManyAtOnceAndNoMore) {
  ParallelWork work(3);
  std::atomic<int> running = 0, most = 0;
  std::vector<std::future<int>> results;
  for (int i = 0; i < 30; ++i) {
    results.push_back(work.start([&, i] {
      const int now = ++running;
      for (int before = most; before < now && !most.compare_exchange_weak(before, now);) {
      }
      std::this_thread::sleep_for(std::chrono::milliseconds(2));
      --running;
      return i;
    }));
  }
  for (int i = 0; i < 30; ++i) EXPECT_EQ(results[static_cast<std::size_t>(i)].get(), i);
  EXPECT_LE(most, 3);
  EXPECT_GT(most, 1);
}

TEST(ParallelWork, NoticesEveryEndThatItWaitsFor) {
  ParallelWork work(1);
  std::atomic<int> done = 0;
  std::future<void> result;
  for (int i = 0; i < 1000; ++i) result = work.start([&] { ++done; });
  result.get();
  EXPECT_EQ(done, 1000);
}

TEST(ParallelWork, PassesOnWhatWasThrownAndGoesOn) {
  ParallelWork work(1);
  auto failed = work.start([]() -> int { throw std::runtime_error("no"); });
  auto done = work.start([] { return 7; });
  EXPECT_THROW(failed.get(), std::runtime_error);
  EXPECT_EQ(done.get(), 7);
}

}  // namespace
}  // namespace quiltor::standalone
