#include "render/worker_threads.h"

#include <algorithm>
#include <array>
#include <exception>
#include <thread>

namespace quiltor {

void runOnWorkers(int32_t rows, const std::function<void(int32_t first, int32_t end)>& work) {
  const int64_t rowsPerWorker = rows / kWorkers + 1;
  std::array<std::exception_ptr, kWorkers> failures;
  const auto run = [&](int worker) noexcept {
    const int64_t first = worker * rowsPerWorker;
    const int64_t end = std::min<int64_t>(first + rowsPerWorker, rows);
    if (first >= end) return;
    try {
      work(static_cast<int32_t>(first), static_cast<int32_t>(end));
    } catch (...) {
      failures[static_cast<size_t>(worker)] = std::current_exception();
    }
  };

  std::array<std::thread, kWorkers> threads;
  for (int worker = 0; worker < kWorkers; ++worker) {
    try {
      threads[static_cast<size_t>(worker)] = std::thread(run, worker);
    } catch (...) {
      run(worker);  // a system out of threads or memory still gets its picture
    }
  }
  for (std::thread& thread : threads) {
    if (thread.joinable()) thread.join();
  }
  for (const std::exception_ptr& failure : failures) {
    if (failure) std::rethrow_exception(failure);
  }
}

}  // namespace quiltor
