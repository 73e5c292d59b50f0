#include <windows.h>

#include <array>
#include <stdexcept>

#include "platform/environment_override.h"
#include "platform/testing/test_process_work.h"

namespace quiltor {

struct TestProcess::System {
  PROCESS_INFORMATION process{};
  bool ended = false;

  ~System() {
    CloseHandle(process.hThread);
    CloseHandle(process.hProcess);
  }
};

TestProcess::TestProcess(const ProcessWork& work, const std::vector<std::string>& words)
    : system_(std::make_unique<System>()) {
  const EnvironmentOverride told(kWorkVariable, workText(work, words));
  std::array<wchar_t, 32768> program{};
  GetModuleFileNameW(nullptr, program.data(), static_cast<DWORD>(program.size()));
  std::wstring line = L"\"" + std::wstring(program.data()) + L"\"";
  SECURITY_ATTRIBUTES inherited{sizeof inherited, nullptr, TRUE};
  const HANDLE nowhere =
      CreateFileW(L"NUL", GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE, &inherited, OPEN_EXISTING, 0, nullptr);
  STARTUPINFOW startup{};
  startup.cb = sizeof startup;
  startup.dwFlags = STARTF_USESTDHANDLES;
  startup.hStdOutput = nowhere;
  startup.hStdError = GetStdHandle(STD_ERROR_HANDLE);
  const BOOL started = CreateProcessW(program.data(), line.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr,
                                      &startup, &system_->process);
  CloseHandle(nowhere);
  if (!started) throw std::runtime_error("cannot start a process to " + std::string(work.name()));
}

TestProcess::~TestProcess() {
  if (system_->ended) return;
  kill();
  end();
}

int64_t TestProcess::number() const { return static_cast<int64_t>(system_->process.dwProcessId); }
void TestProcess::kill() { TerminateProcess(system_->process.hProcess, static_cast<UINT>(kKilled)); }

int TestProcess::end() {
  DWORD status = 0;
  if (WaitForSingleObject(system_->process.hProcess, INFINITE) != WAIT_OBJECT_0 ||
      !GetExitCodeProcess(system_->process.hProcess, &status)) {
    throw std::runtime_error("the process was lost");
  }
  system_->ended = true;
  return static_cast<int>(status);
}

}  // namespace quiltor
