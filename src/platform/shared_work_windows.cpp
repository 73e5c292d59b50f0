#include <windows.h>

#include "platform/shared_work.h"

namespace quiltor {
namespace {

struct Work {
  void (*run)(void*) noexcept;
  void* argument;

  static void CALLBACK start(PTP_CALLBACK_INSTANCE, void* self, PTP_WORK) {
    const auto& work = *static_cast<const Work*>(self);
    work.run(work.argument);
  }
};

}  // namespace

// The threads are those of the process's pool, which outlive their work: to start new ones takes longer than a frame.
void shareWork(int helpers, void (*work)(void*) noexcept, void* argument) {
  Work shared{work, argument};
  const PTP_WORK queued = helpers > 0 ? CreateThreadpoolWork(&Work::start, &shared, nullptr) : nullptr;
  for (int i = 0; queued && i < helpers; ++i) SubmitThreadpoolWork(queued);
  work(argument);
  if (!queued) return;
  // Deliberate: who has not come by now finds nothing left, and is not waited for.
  WaitForThreadpoolWorkCallbacks(queued, TRUE);
  CloseThreadpoolWork(queued);
}

}  // namespace quiltor
