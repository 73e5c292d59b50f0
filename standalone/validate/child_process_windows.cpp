#include <windows.h>

#include <array>
#include <sstream>
#include <stdexcept>
#include <system_error>

#include "base/utf8_path.h"
#include "platform/system_message.h"
#include "standalone/validate/child_process.h"

namespace quiltor::standalone {
namespace {

[[noreturn]] void fail(const std::string& what, const std::filesystem::path& file) {
  const std::error_code error(static_cast<int>(GetLastError()), std::system_category());
  throw std::runtime_error(what + ": " + systemMessage(error, file));
}

class Handle {
 public:
  explicit Handle(HANDLE handle) : handle_(handle) {}
  ~Handle() {
    if (handle_ && handle_ != INVALID_HANDLE_VALUE) CloseHandle(handle_);
  }
  Handle(const Handle&) = delete;
  Handle& operator=(const Handle&) = delete;

  [[nodiscard]] HANDLE get() const { return handle_; }

 private:
  HANDLE handle_;
};

// As the C runtime of the program takes it apart again: backslashes count only before a quotation mark.
std::wstring quotedArgument(const std::wstring& argument) {
  std::wstring quoted = L"\"";
  std::size_t backslashes = 0;
  for (const wchar_t character : argument) {
    if (character == L'"') quoted.append(backslashes + 1, L'\\');
    backslashes = character == L'\\' ? backslashes + 1 : 0;
    quoted += character;
  }
  quoted.append(backslashes, L'\\');
  return quoted + L"\"";
}

// Exceptions that nobody caught end a process with their own number, which has the highest two bits set.
ProcessEnd endOf(DWORD status) {
  constexpr DWORD kSevere = 0xC0000000;
  if ((status & kSevere) != kSevere) return {ProcessEnd::Kind::Exited, static_cast<int>(status), ""};
  std::ostringstream number;
  number << "exception 0x" << std::hex << status;
  return {ProcessEnd::Kind::Killed, 0, number.str()};
}

}  // namespace

ProcessEnd runProcess(const std::filesystem::path& program, const std::vector<std::string>& arguments,
                      std::chrono::milliseconds limit) {
  std::wstring line = quotedArgument(program.wstring());
  for (const std::string& argument : arguments) {
    line += L" " + quotedArgument(pathFromUtf8(argument).wstring());
  }
  SECURITY_ATTRIBUTES inherited{sizeof inherited, nullptr, TRUE};
  const Handle nowhere(
      CreateFileW(L"NUL", GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE, &inherited, OPEN_EXISTING, 0, nullptr));
  STARTUPINFOW start{};
  start.cb = sizeof start;
  start.dwFlags = STARTF_USESTDHANDLES;
  start.hStdOutput = start.hStdError = nowhere.get();
  PROCESS_INFORMATION made{};
  // No window tells of a crash: the mode is handed down.
  SetErrorMode(GetErrorMode() | SEM_FAILCRITICALERRORS | SEM_NOGPFAULTERRORBOX);
  if (!CreateProcessW(program.c_str(), line.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr, &start, &made)) {
    fail("cannot run " + utf8FromPath(program), program);
  }
  const Handle process(made.hProcess), thread(made.hThread);
  if (WaitForSingleObject(process.get(), static_cast<DWORD>(limit.count())) == WAIT_TIMEOUT) {
    TerminateProcess(process.get(), 1);
    WaitForSingleObject(process.get(), INFINITE);
    return {ProcessEnd::Kind::TimedOut, 0, ""};
  }
  DWORD status = 0;
  if (!GetExitCodeProcess(process.get(), &status)) fail("cannot tell how " + utf8FromPath(program) + " ended", program);
  return endOf(status);
}

std::filesystem::path ownProgram() {
  std::array<wchar_t, 32768> path{};
  const DWORD length = GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size()));
  if (length == 0 || length == path.size()) fail("cannot tell the program's own file", {});
  return std::wstring(path.data(), length);
}

}  // namespace quiltor::standalone
