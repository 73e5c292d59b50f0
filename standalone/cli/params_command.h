#pragma once

#include <ostream>
#include <span>

#include "standalone/cli/session.h"
#include "standalone/host/parameter.h"

namespace quiltor::standalone {

// Prints the table of the parameters that the effect registers.
void runParams(const SessionOptions& session, std::ostream& out, std::ostream& err);

// One row per parameter but the input layer: names, kind, default, and the range or the items.
void printParameters(std::span<const Parameter> parameters, std::ostream& out);

}  // namespace quiltor::standalone
