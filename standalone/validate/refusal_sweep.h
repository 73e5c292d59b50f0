#pragma once

#include <cstddef>
#include <functional>
#include <string>

#include "standalone/host/host.h"

namespace quiltor::standalone {

// One thing that the host refuses.
struct Refusal {
  ListedCall call;
  std::size_t occurrence = 0;  // how many calls of the same text came before it from the same selector

  // "AcquireSuite \"PF World Suite\" 2 in PF_Cmd_RENDER", with "the 2nd time" where there are several.
  [[nodiscard]] std::string text() const;
};

struct Sweep {
  std::function<void(const Refusal&)> announce;            // what is refused next
  std::function<void()> prepare;                           // nothing is refused yet
  std::function<void()> command;                           // what is swept over
  std::function<void(const Refusal&, bool came)> examine;  // nothing is refused; whether the refused call was made
};

// Runs the command once to list what the host can refuse, then once for each of these with that alone refused. Iterates
// on one thread, so that calls come in the same order each time. Gives the number of refusals.
std::size_t sweepRefusals(Host& host, const Sweep& sweep);

}  // namespace quiltor::standalone
