#include <unistd.h>

#include "standalone/cli/program_start.h"

namespace quiltor::standalone {

std::vector<std::string> startProgram(int argc, char** argv) { return {argv, argv + argc}; }

bool errorsGoToTerminal() { return isatty(STDERR_FILENO) != 0; }

}  // namespace quiltor::standalone
