#include "render/worker_threads.h"

#include <algorithm>
#include <array>
#include <exception>

#include "platform/small_thread.h"

namespace quiltor {

void runOnWorkers(int32_t rows, const std::function<void(int32_t first, int32_t end)>& work) {
  const int64_t rowsPerWorker = rows / kWorkers + 1;
  struct Worker {
    const std::function<void(int32_t, int32_t)>* work;
    int64_t first, end;
    std::exception_ptr failure;

    static void run(void* worker) noexcept {
      Worker& self = *static_cast<Worker*>(worker);
      if (self.first >= self.end) return;
      try {
        (*self.work)(static_cast<int32_t>(self.first), static_cast<int32_t>(self.end));
      } catch (...) {
        self.failure = std::current_exception();
      }
    }
  };

  std::array<Worker, kWorkers> workers;
  {
    std::array<SmallThread, kWorkers> threads;
    for (size_t i = 0; i < workers.size(); ++i) {
      const int64_t first = static_cast<int64_t>(i) * rowsPerWorker;
      workers[i] = {&work, first, std::min<int64_t>(first + rowsPerWorker, rows), nullptr};
      // A system out of threads or memory still gets its picture.
      if (!threads[i].start(&Worker::run, &workers[i])) Worker::run(&workers[i]);
    }
  }
  for (const Worker& worker : workers) {
    if (worker.failure) std::rethrow_exception(worker.failure);
  }
}

}  // namespace quiltor
