#pragma once

#include "hostapi/basic_types.h"

namespace quiltor {

// The host's name of a selector from 0 to 26, "unknown" for any other value. For diagnostics; the dispatch does not
// ask.
const char* selectorName(A_long selector);

}  // namespace quiltor
