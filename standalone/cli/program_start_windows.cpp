#include <io.h>
#include <windows.h>
// After the header that it needs.
#include <shellapi.h>

#include <cstdio>
#include <memory>

#include "platform/wide_text_windows.h"
#include "standalone/cli/program_start.h"

namespace quiltor::standalone {

// The words that main() is given are in the system's code page, which has not all characters.
std::vector<std::string> startProgram(int argc, char** argv) {
  SetConsoleOutputCP(CP_UTF8);
  int count = 0;
  const std::unique_ptr<wchar_t*, decltype(&LocalFree)> words(CommandLineToArgvW(GetCommandLineW(), &count),
                                                              &LocalFree);
  if (!words) return {argv, argv + argc};
  std::vector<std::string> arguments;
  for (int i = 0; i < count; ++i) arguments.push_back(utf8Text(words.get()[i]).value_or("?"));
  return arguments;
}

bool errorsGoToTerminal() { return _isatty(_fileno(stderr)) != 0; }

}  // namespace quiltor::standalone
