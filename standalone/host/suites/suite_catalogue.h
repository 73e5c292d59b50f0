#pragma once

#include "standalone/host/services/call_scope.h"

namespace quiltor::standalone {

// The suite's table, or null when the host does not offer it: unknown, of the other application, or switched off.
[[nodiscard]] const void* findSuite(const SuiteId& suite);

}  // namespace quiltor::standalone
