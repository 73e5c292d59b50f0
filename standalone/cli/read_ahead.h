#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <functional>
#include <future>
#include <utility>

#include "standalone/cli/parallel_work.h"

namespace quiltor::standalone {

// What is read of some files in their order, ahead of its use: at most as many files as the work does at once, and of
// more than one no more bytes than the bound, so that large files do not take the more memory the more cores there are.
template <class Result>
class ReadAhead {
 public:
  struct Files {
    std::size_t count = 0;
    std::function<uint64_t(std::size_t)> bytes;
    std::function<Result(std::size_t)> read;
  };

  // The work must outlive this object.
  ReadAhead(ParallelWork& work, Files files, uint64_t mostBytes)
      : work_(work), files_(std::move(files)), mostBytes_(mostBytes) {}

  // Of the next file; throws what its reading threw. There must be one.
  [[nodiscard]] Result next() {
    for (; started_ < files_.count && reading_.size() < work_.atOnce(); ++started_) {
      const uint64_t bytes = files_.bytes(started_);
      if (!reading_.empty() && ahead_ + bytes > mostBytes_) break;
      reading_.push_back({bytes, work_.start([this, file = started_] { return files_.read(file); })});
      ahead_ += bytes;
    }
    Reading first = std::move(reading_.front());
    reading_.pop_front();
    ahead_ -= first.bytes;
    return first.result.get();
  }

 private:
  struct Reading {
    uint64_t bytes;
    std::future<Result> result;
  };

  ParallelWork& work_;
  const Files files_;
  const uint64_t mostBytes_;
  uint64_t ahead_ = 0;
  std::size_t started_ = 0;
  std::deque<Reading> reading_;
};

}  // namespace quiltor::standalone
