#include <windows.h>

#include <array>
#include <stdexcept>
#include <string_view>

#include "platform/testing/import_hook_windows.h"
#include "platform/testing/locked.h"
#include "platform/wide_text_windows.h"

namespace quiltor {

// Whoever opens something and shares it with nobody shuts out everyone, this process and administrators too.
struct Locked::Lock {
  HANDLE opened;
  ~Lock() { CloseHandle(opened); }
};

Locked::Locked(const std::string& path) {
  const HANDLE opened = CreateFileW(systemPath(path).c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING,
                                    FILE_FLAG_BACKUP_SEMANTICS, nullptr);
  if (opened == INVALID_HANDLE_VALUE) throw std::runtime_error(path + ": cannot be locked");
  lock_.reset(new Lock{opened});
}

Locked::~Locked() = default;

namespace {

// Of the folder that nothing new is made in.
std::wstring protectedPath;

bool isProtected(LPCWSTR path) { return std::wstring_view(path).find(protectedPath) != std::wstring_view::npos; }

HANDLE WINAPI createFile(LPCWSTR path, DWORD access, DWORD sharing, LPSECURITY_ATTRIBUTES security, DWORD creation,
                         DWORD flags, HANDLE model) {
  if (isProtected(path) && (access & GENERIC_WRITE)) {
    SetLastError(ERROR_ACCESS_DENIED);
    return INVALID_HANDLE_VALUE;
  }
  static const auto real = systemFunction<decltype(&CreateFileW)>("CreateFileW");
  return real(path, access, sharing, security, creation, flags, model);
}

BOOL WINAPI createFolder(LPCWSTR path, LPSECURITY_ATTRIBUTES security) {
  if (isProtected(path)) {
    SetLastError(ERROR_ACCESS_DENIED);
    return FALSE;
  }
  static const auto real = systemFunction<decltype(&CreateDirectoryW)>("CreateDirectoryW");
  return real(path, security);
}

}  // namespace

// An administrator may write whatever the permissions say, so the functions that make something new are replaced.
struct WriteProtected::Protection {
  ImportHook file{"CreateFileW", reinterpret_cast<void*>(&createFile)};
  ImportHook folder{"CreateDirectoryW", reinterpret_cast<void*>(&createFolder)};
};

WriteProtected::WriteProtected(const std::string& folder) {
  std::array<wchar_t, MAX_PATH> path{};
  protectedPath =
      std::wstring(path.data(), GetFullPathNameW(systemPath(folder).c_str(), MAX_PATH, path.data(), nullptr));
  protection_ = std::make_unique<Protection>();
}

WriteProtected::~WriteProtected() = default;

bool asOrdinaryUser(const std::function<bool()>& work) { return work(); }

}  // namespace quiltor
