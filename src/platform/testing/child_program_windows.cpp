#include <windows.h>

#include <array>
#include <stdexcept>

#include "platform/testing/child_program.h"
#include "platform/wide_text_windows.h"

namespace quiltor {
namespace {

// None of the tests' words has a quotation mark or ends with a backslash.
std::wstring quoted(const std::string& word) { return L"\"" + wideText(word).value_or(L"") + L"\""; }

}  // namespace

struct ChildProgram::System {
  PROCESS_INFORMATION process{};
  bool ended = false;

  ~System() {
    CloseHandle(process.hThread);
    CloseHandle(process.hProcess);
  }
};

ChildProgram::ChildProgram(const std::string& program, const std::vector<std::string>& words, const std::string& output)
    : system_(std::make_unique<System>()) {
  std::wstring line = quoted(program);
  for (const std::string& word : words) line += L" " + quoted(word);
  SECURITY_ATTRIBUTES inherited{sizeof inherited, nullptr, TRUE};
  const HANDLE file = CreateFileW(systemPath(output).c_str(), GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE,
                                  &inherited, CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
  if (file == INVALID_HANDLE_VALUE) throw std::runtime_error("cannot make " + output);
  STARTUPINFOW startup{};
  startup.cb = sizeof startup;
  startup.dwFlags = STARTF_USESTDHANDLES;
  startup.hStdOutput = startup.hStdError = file;
  const BOOL started = CreateProcessW(systemPath(program).c_str(), line.data(), nullptr, nullptr, TRUE, 0, nullptr,
                                      nullptr, &startup, &system_->process);
  CloseHandle(file);
  if (!started) throw std::runtime_error("cannot start " + program);
}

ChildProgram::~ChildProgram() {
  if (system_->ended) return;
  kill();
  WaitForSingleObject(system_->process.hProcess, INFINITE);
}

int64_t ChildProgram::number() const { return static_cast<int64_t>(system_->process.dwProcessId); }
void ChildProgram::kill() { TerminateProcess(system_->process.hProcess, static_cast<UINT>(kKilled)); }

int ChildProgram::end() {
  DWORD status = 0;
  if (WaitForSingleObject(system_->process.hProcess, INFINITE) != WAIT_OBJECT_0 ||
      !GetExitCodeProcess(system_->process.hProcess, &status)) {
    throw std::runtime_error("the process was lost");
  }
  system_->ended = true;
  return static_cast<int>(status);
}

std::string ownProgram() {
  std::array<wchar_t, 32768> program{};
  GetModuleFileNameW(nullptr, program.data(), static_cast<DWORD>(program.size()));
  return utf8Text(program.data()).value_or("");
}

}  // namespace quiltor
