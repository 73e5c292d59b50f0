#pragma once

#include <string>
#include <vector>

namespace quiltor::standalone {

// The words of the command line as UTF-8, the program's name first. Has the console take what is printed as UTF-8 too.
std::vector<std::string> startProgram(int argc, char** argv);

// Whether somebody sees the standard error as it is written, on a terminal that knows escape sequences.
bool errorsGoToTerminal();

}  // namespace quiltor::standalone
