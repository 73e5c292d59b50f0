#pragma once

#include <utility>

#include "hostapi/effect.h"

namespace quiltor {

// Host errors travel as the host's bare integer code. One alias for throwing and catching, because int and long are
// different types to a catch clause even where both have 32 bits.
using HostErr = PF_Err;

[[noreturn]] inline void throwHostError(HostErr code) { throw code; }

// Runs body and turns what it throws into the host's code. Goes around every function whose address the host holds: the
// host's frames above it are C and no exception may pass through them.
template <class Body>
HostErr hostBoundary(Body&& body) noexcept {
  try {
    return std::forward<Body>(body)();
  } catch (HostErr code) {
    return code;
  } catch (...) {
    return PF_Err_INTERNAL_STRUCT_DAMAGED;
  }
}

}  // namespace quiltor
