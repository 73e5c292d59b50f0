#pragma once

#include "description/language/description.h"
#include "host/host_error.h"
#include "hostapi/effect.h"

namespace quiltor {

// Registers the description's parameters with the host and reports their number. Returns the host's code of the first
// registration that failed.
HostErr registerParameters(const Description& description, PF_InData& in, PF_OutData& out);

}  // namespace quiltor
