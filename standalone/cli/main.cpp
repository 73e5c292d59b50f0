#include <unistd.h>

#include <iostream>

#include "standalone/cli/command_line.h"

int main(int argc, char** argv) {
  return quiltor::standalone::runCommandLine(argc, argv, std::cout, std::cerr, isatty(STDERR_FILENO) != 0);
}
