#pragma once

#include <ostream>

namespace quiltor::standalone {

// Carries out one command line and gives the exit status: 0, 1 for failure, 2 for wrong use. Progress is shown on `err`
// when that is a terminal.
int runCommandLine(int argc, const char* const* argv, std::ostream& out, std::ostream& err, bool terminal = false);

}  // namespace quiltor::standalone
