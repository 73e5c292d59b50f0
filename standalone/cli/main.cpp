#include <iostream>

#include "standalone/cli/command_line.h"

int main(int argc, char** argv) { return quiltor::standalone::runCommandLine(argc, argv, std::cout, std::cerr); }
