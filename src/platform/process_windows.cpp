#include <windows.h>

#include <limits>

#include "platform/process.h"

namespace quiltor {

int64_t processNumber() noexcept { return GetCurrentProcessId(); }

bool processRuns(int64_t number) noexcept {
  if (number <= 0 || number > std::numeric_limits<DWORD>::max()) return false;
  const HANDLE process = OpenProcess(SYNCHRONIZE, FALSE, static_cast<DWORD>(number));
  if (!process) return GetLastError() == ERROR_ACCESS_DENIED;
  // A process that ended keeps its number while somebody holds on to it.
  const bool runs = WaitForSingleObject(process, 0) == WAIT_TIMEOUT;
  CloseHandle(process);
  return runs;
}

bool keepModuleLoaded() noexcept {
  HMODULE module = nullptr;
  return GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_PIN | GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS,
                            reinterpret_cast<LPCWSTR>(&keepModuleLoaded), &module) != 0;
}

}  // namespace quiltor
