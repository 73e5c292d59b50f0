#include <algorithm>
#include <atomic>
#include <string>
#include <thread>

#include "platform/shared_work.h"
#include "standalone/host/services/host_state.h"
#include "standalone/host/suites/suite_table.h"
#include "standalone/host/suites/suite_tables.h"

namespace quiltor::standalone {
namespace {

using Worker = PF_Err (*)(void* refcon, A_long threadIndex, A_long iteration, A_long iterations);

// Threads take iterations as they come; thread index 0 is the caller's and has iteration 0.
class Iteration {
 public:
  Iteration(A_long count, void* refcon, Worker worker) : count_(count), refcon_(refcon), worker_(worker) {}

  PF_Err run(int threads) {
    shareWork(threads - 1, &Iteration::takePart, this);
    return error_;
  }

 private:
  static void takePart(void* iteration) noexcept { static_cast<Iteration*>(iteration)->takePart(); }

  void takePart() noexcept {
    const bool isCaller = std::this_thread::get_id() == caller_;
    const int index = isCaller ? 0 : nextIndex_++;
    const EnterCall enter(call_, index);
    for (A_long i = isCaller ? 0 : next_++; i < count_ && error_ == PF_Err_NONE; i = next_++) {
      PF_Err none = PF_Err_NONE;
      if (const PF_Err code = worker_(refcon_, index, i, count_)) error_.compare_exchange_strong(none, code);
    }
  }

  const A_long count_;
  void* const refcon_;
  const Worker worker_;
  const std::thread::id caller_ = std::this_thread::get_id();
  CallScope* const call_ = currentCall();
  std::atomic<int> nextIndex_ = 1;
  std::atomic<A_long> next_ = 1;
  std::atomic<PF_Err> error_ = PF_Err_NONE;
};

PF_Err iterateGeneric(A_long iterations, void* refcon, Worker worker) {
  HostState& host = hostState();
  const std::string what = "iterate_generic over " + std::to_string(iterations);
  if (const PF_Err refused = host.faults.refusal(HostCall::Iterate, what, PF_Err_OUT_OF_MEMORY)) return refused;
  const int available = std::max(1, host.options.iterateThreads);
  const A_long count = iterations == PF_Iterations_ONCE_PER_PROCESSOR ? available : iterations;
  if (count < 0 || !worker) {
    host.findings.record(FindingKind::BadArgument, "iterate_generic was called with a negative count or no function");
    return PF_Err_BAD_CALLBACK_PARAM;
  }
  return Iteration(count, refcon, worker).run(std::min(available, static_cast<int>(count)));
}

PF_Iterate8Suite1 makeSuite(bool offersGeneric) {
  auto suite = tableOfUnimplementedSlots<PF_Iterate8Suite1>();
  suite.iterate_generic = offersGeneric ? &iterateGeneric : nullptr;
  return suite;
}

}  // namespace

decltype(PF_Iterate8Suite1::iterate_generic) iterateGenericFunction() { return &iterateGeneric; }

const PF_Iterate8Suite1& iterate8Suite() {
  static const PF_Iterate8Suite1 whole = makeSuite(true);
  static const PF_Iterate8Suite1 withoutGeneric = makeSuite(false);
  return hostState().options.offerIterateGeneric ? whole : withoutGeneric;
}

}  // namespace quiltor::standalone
