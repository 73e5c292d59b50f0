#include "standalone/validate/refusal_sweep.h"

#include <map>
#include <utility>
#include <vector>

namespace quiltor::standalone {

std::string Refusal::text() const {
  const std::string again = occurrence == 0 ? "" : ", time " + std::to_string(occurrence + 1);
  return call.what + " in " + call.selector + again;
}

std::size_t sweepRefusals(Host& host, const Sweep& sweep) {
  const int threads = std::exchange(host.options().iterateThreads, 1);
  sweep.prepare();
  host.faults().list();
  sweep.command();
  const std::vector<ListedCall> calls = host.faults().listed();
  host.faults().failNever();

  std::map<std::pair<std::string, std::string>, std::size_t> seen;
  for (std::size_t k = 0; k < calls.size(); ++k) {
    const Refusal refusal{calls[k], seen[{calls[k].selector, calls[k].what}]++};
    sweep.announce(refusal);
    sweep.prepare();
    host.faults().failAt(k);
    sweep.command();
    const bool came = host.faults().struck();
    host.faults().failNever();
    sweep.examine(refusal, came);
  }
  host.options().iterateThreads = threads;
  return calls.size();
}

}  // namespace quiltor::standalone
