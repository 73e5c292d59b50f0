#include "render/worker_threads.h"

#include <algorithm>
#include <array>
#include <atomic>
#include <exception>
#include <thread>

#include "platform/shared_work.h"

namespace quiltor {
namespace {

// A pass over the rows of a frame, which its threads share in kWorkers parts.
class Pass {
 public:
  Pass(int32_t rows, const std::function<void(int32_t first, int32_t end)>& work) : rows_(rows), work_(work) {}

  static void takeParts(void* pass) noexcept { static_cast<Pass*>(pass)->takeParts(); }

  void rethrowFirstFailure() const {
    for (const std::exception_ptr& failure : failures_) {
      if (failure) std::rethrow_exception(failure);
    }
  }

 private:
  void takeParts() noexcept {
    for (size_t part = next_++; part < kWorkers; part = next_++) {
      const int64_t rowsPerPart = rows_ / kWorkers + 1;
      const int64_t first = static_cast<int64_t>(part) * rowsPerPart;
      const int64_t end = std::min<int64_t>(first + rowsPerPart, rows_);
      if (first >= end) return;
      try {
        work_(static_cast<int32_t>(first), static_cast<int32_t>(end));
      } catch (...) {
        failures_[part] = std::current_exception();
      }
    }
  }

  const int32_t rows_;
  const std::function<void(int32_t, int32_t)>& work_;
  std::atomic<size_t> next_ = 0;
  std::array<std::exception_ptr, kWorkers> failures_;
};

}  // namespace

void runOnWorkers(int32_t rows, const std::function<void(int32_t first, int32_t end)>& work) {
  // The caller has a processor too; to wake more threads than can run costs a small frame a good part of its time.
  static const int helpers = std::clamp(static_cast<int>(std::thread::hardware_concurrency()) - 1, 1, kWorkers);
  Pass pass(rows, work);
  shareWork(helpers, &Pass::takeParts, &pass);
  pass.rethrowFirstFailure();
}

}  // namespace quiltor
