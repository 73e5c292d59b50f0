#pragma once

#include <string>

#include "hostapi/effect.h"
#include "standalone/validate/refusal_sweep.h"

namespace quiltor::refusal_tests {

// What a refused host call makes of the effect's answer.
enum class Answer {
  Success,
  StructDamaged,  // 512
  MissingSuite,   // 516
  OutOfMemory,    // 4
  NoWorldSuite,   // what the host answered to the acquisition
  HostsOwn,       // the code by which the host refused
};

// What the frame shows although something was refused.
enum class Picture {
  None,       // the frame has failed, or nothing was drawn into anything
  Same,       // as if nothing had been refused
  Untouched,  // the output is as the host made it
  Unmasked,
  Unlocked,         // as if the layer were not transformed at all
  WithoutPosition,  // as if the layer had not moved, and so on
  WithoutScale,
  WithoutRotation,
  WithoutAnchor,
  PatternIsInput,  // the input layer stands in for the pattern layer
};

struct Expected {
  Answer answer = Answer::Success;
  Picture picture = Picture::Same;
  const char* message = "";  // shown by the host, together with the flag for it
};

// The code by which the host of these tests refuses whatever is refused by a code; no other.
inline constexpr PF_Err kHostsOwnCode = 7007;

[[nodiscard]] PF_Err codeOf(Answer answer);

// What the effect has promised for this refusal. A refusal that no rule covers is a failure of the test.
[[nodiscard]] Expected expectedFor(const standalone::Refusal& refusal, A_long application);

}  // namespace quiltor::refusal_tests
