#pragma once

#include <algorithm>
#include <chrono>
#include <cstddef>
#include <future>
#include <semaphore>
#include <type_traits>
#include <utility>

#include "base/scope_guard.h"

namespace quiltor::standalone {

// Runs work beside the caller's, so many pieces of it at once.
class ParallelWork {
 public:
  explicit ParallelWork(std::size_t atOnce)
      : atOnce_(std::max<std::size_t>(atOnce, 1)), free_(static_cast<std::ptrdiff_t>(atOnce_)) {}

  [[nodiscard]] std::size_t atOnce() const { return atOnce_; }

  // Waits until fewer pieces run and starts this one. This object must outlive the result, which waits for its end.
  template <class Work>
  [[nodiscard]] std::future<std::invoke_result_t<Work&>> start(Work work) {
    free_.acquire();
    auto result = std::async(std::launch::async | std::launch::deferred, [this, work = std::move(work)]() mutable {
      const ScopeGuard release([this] { free_.release(); });
      return work();
    });
    // A system out of threads defers it.
    if (result.wait_for(std::chrono::seconds(0)) == std::future_status::deferred) result.wait();
    return result;
  }

 private:
  const std::size_t atOnce_;
  std::counting_semaphore<> free_;
};

}  // namespace quiltor::standalone
