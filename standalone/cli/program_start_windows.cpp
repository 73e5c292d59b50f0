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

// Has the console take UTF-8, and escape sequences in errors, until the program ends: the console is not the program's
// own.
class OwnConsole {
 public:
  OwnConsole() {
    SetConsoleOutputCP(CP_UTF8);
    takesEscapes_ = GetConsoleMode(errors_, &modeBefore_) &&
                    SetConsoleMode(errors_, modeBefore_ | ENABLE_PROCESSED_OUTPUT | ENABLE_VIRTUAL_TERMINAL_PROCESSING);
  }
  ~OwnConsole() {
    std::cout.flush();
    std::fflush(stdout);
    SetConsoleOutputCP(before_);
    if (takesEscapes_) SetConsoleMode(errors_, modeBefore_);
  }
  OwnConsole(const OwnConsole&) = delete;
  OwnConsole& operator=(const OwnConsole&) = delete;

  // Of a file or a pipe it is false, and of a console that shows them as characters.
  [[nodiscard]] bool takesEscapes() const { return takesEscapes_; }

 private:
  const UINT before_ = GetConsoleOutputCP();
  const HANDLE errors_ = GetStdHandle(STD_ERROR_HANDLE);
  DWORD modeBefore_ = 0;
  bool takesEscapes_ = false;
};

const OwnConsole& ownConsole() {
  static const OwnConsole console;
  return console;
}

}  // namespace

// The words that main() is given are in the system's code page, which has not all characters.
std::vector<std::string> startProgram(int argc, char** argv) {
  ownConsole();
  int count = 0;
  const std::unique_ptr<wchar_t*, decltype(&LocalFree)> words(CommandLineToArgvW(GetCommandLineW(), &count),
                                                              &LocalFree);
  if (!words) return {argv, argv + argc};
  std::vector<std::string> arguments;
  for (int i = 0; i < count; ++i) arguments.push_back(utf8Text(words.get()[i]).value_or("?"));
  return arguments;
}

bool errorsGoToTerminal() { return ownConsole().takesEscapes(); }

}  // namespace quiltor::standalone
