#pragma once

#include <cstdio>

#include "hostapi/effect.h"

namespace quiltor {

// Has the host show a message when the call is over. A later one takes its place.
inline void tellUser(PF_OutData& out, const char* message) {
  out.out_flags |= PF_OutFlag_DISPLAY_ERROR_MESSAGE;
  std::snprintf(out.return_msg, sizeof out.return_msg, "%s", message);
}

}  // namespace quiltor
