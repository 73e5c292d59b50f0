#include "render/worker_threads.h"

#include <gtest/gtest.h>

#include <atomic>
#include <stdexcept>
#include <vector>

namespace quiltor {
namespace {

TEST(Workers, CoverEveryRowOnceWhateverTheirNumber) {
  for (const int32_t rows : {0, 1, 5, 31, 32, 33, 63, 64, 100, 1080}) {
    std::vector<std::atomic<int>> visits(static_cast<size_t>(rows));
    runOnWorkers(rows, [&](int32_t first, int32_t end) {
      for (int32_t row = first; row < end; ++row) ++visits[static_cast<size_t>(row)];
    });
    for (const auto& count : visits) EXPECT_EQ(count, 1) << rows << " rows";
  }
}

TEST(Workers, AllEndBeforeTheFirstFailureIsPassedOn) {
  std::atomic<int> ended = 0;
  const auto work = [&](int32_t first, int32_t) {
    ++ended;
    if (first == 4) throw std::runtime_error("second");
    if (first == 2) throw std::runtime_error("first");
  };
  try {
    runOnWorkers(63, work);
    FAIL() << "nothing was thrown";
  } catch (const std::runtime_error& error) {
    EXPECT_STREQ(error.what(), "first");
  }
  EXPECT_EQ(ended, 32);
}

}  // namespace
}  // namespace quiltor
