#pragma once

#include <algorithm>
#include <chrono>
#include <condition_variable>
#include <cstddef>
#include <future>
#include <mutex>
#include <type_traits>
#include <utility>

#include "base/scope_guard.h"

namespace quiltor::standalone {

// Runs work beside the caller's, so many pieces of it at once.
class ParallelWork {
 public:
  explicit ParallelWork(std::size_t atOnce) : atOnce_(std::max<std::size_t>(atOnce, 1)), free_(atOnce_) {}

  [[nodiscard]] std::size_t atOnce() const { return atOnce_; }

  // Waits until fewer pieces run and starts this one. This object must outlive the result, which waits for its end.
  template <class Work>
  [[nodiscard]] std::future<std::invoke_result_t<Work&>> start(Work work) {
    takeTurn();
    auto result = std::async(std::launch::async | std::launch::deferred, [this, work = std::move(work)]() mutable {
      const ScopeGuard release([this] { endTurn(); });
      return work();
    });
    // A system out of threads defers it.
    if (result.wait_for(std::chrono::seconds(0)) == std::future_status::deferred) result.wait();
    return result;
  }

 private:
  void takeTurn() {
    std::unique_lock lock(mutex_);
    released_.wait(lock, [this] { return free_ > 0; });
    --free_;
  }
  void endTurn() {
    const std::lock_guard lock(mutex_);
    ++free_;
    released_.notify_one();
  }

  const std::size_t atOnce_;
  // Deliberate: no std::counting_semaphore, whose waiting in the C++ library for Windows misses a release that comes
  // between its look at the number and its sleep.
  std::mutex mutex_;
  std::condition_variable released_;
  std::size_t free_;
};

}  // namespace quiltor::standalone
