#include "standalone/cli/read_ahead.h"

#include <gtest/gtest.h>

#include <atomic>
#include <vector>

namespace quiltor::standalone {
namespace {

using Counts = std::vector<std::size_t>;

// How many files of these sizes are begun until each is given out, with four at once and 100 bytes as the bound.
Counts begun(const std::vector<uint64_t>& sizes) {
  Counts counts;
  for (std::size_t last = 0; last < sizes.size(); ++last) {
    std::atomic<std::size_t> begun = 0;
    ParallelWork work(4);
    const auto bytes = [&](std::size_t file) { return sizes[file]; };
    const auto read = [&](std::size_t file) {
      ++begun;
      return file;
    };
    {
      ReadAhead<std::size_t> reading(work, {sizes.size(), bytes, read}, 100);
      for (std::size_t file = 0; file <= last; ++file) EXPECT_EQ(reading.next(), file);
    }
    counts.push_back(begun);
  }
  return counts;
}

TEST(ReadAhead, BeginsAsManySmallFilesAsTheWorkDoesAtOnce) {
  EXPECT_EQ(begun({1, 1, 1, 1, 1, 1}), (Counts{4, 5, 6, 6, 6, 6}));
}

TEST(ReadAhead, BeginsLargeFilesOneAfterTheOther) {
  EXPECT_EQ(begun({101, 101, 101, 40, 60, 1}), (Counts{1, 2, 3, 5, 6, 6}));
}

}  // namespace
}  // namespace quiltor::standalone
