#pragma once

#include <ostream>

#include "standalone/cli/session.h"

namespace quiltor::standalone {

// Prints what the effect says about itself.
void runAbout(const SessionOptions& session, std::ostream& out, std::ostream& err);

}  // namespace quiltor::standalone
