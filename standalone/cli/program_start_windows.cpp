#include <io.h>
#include <windows.h>
// After the header that it needs.
#include <shellapi.h>

#include <cstdio>
#include <iostream>
#include <memory>

#include "platform/wide_text_windows.h"
#include "standalone/cli/program_start.h"

namespace quiltor::standalone {
namespace {

// Has the console take UTF-8 until the program ends: the console is not the program's own.
class Utf8Console {
 public:
  Utf8Console() { SetConsoleOutputCP(CP_UTF8); }
  ~Utf8Console() {
    std::cout.flush();
    std::fflush(stdout);
    SetConsoleOutputCP(before_);
  }
  Utf8Console(const Utf8Console&) = delete;
  Utf8Console& operator=(const Utf8Console&) = delete;

 private:
  const UINT before_ = GetConsoleOutputCP();
};

}  // namespace

// The words that main() is given are in the system's code page, which has not all characters.
std::vector<std::string> startProgram(int argc, char** argv) {
  static const Utf8Console console;
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
