#include <iostream>
#include <string>
#include <vector>

#include "standalone/cli/command_line.h"
#include "standalone/cli/program_start.h"

int main(int argc, char** argv) {
  using namespace quiltor::standalone;
  const std::vector<std::string> words = startProgram(argc, argv);
  std::vector<const char*> pointers;
  for (const std::string& word : words) pointers.push_back(word.c_str());
  return runCommandLine(static_cast<int>(pointers.size()), pointers.data(), std::cout, std::cerr, errorsGoToTerminal());
}
