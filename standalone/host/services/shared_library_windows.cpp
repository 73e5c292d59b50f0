#include <windows.h>

#include <array>
#include <system_error>

#include "base/utf8_path.h"
#include "platform/system_message.h"
#include "standalone/host/services/shared_library.h"

namespace quiltor::standalone {

void* loadLibrary(const std::filesystem::path& path, std::string& problem) {
  // Without a folder the loader would search its own. No window asks the user about a broken file.
  SetErrorMode(GetErrorMode() | SEM_FAILCRITICALERRORS);
  const HMODULE library = LoadLibraryW(std::filesystem::absolute(path).make_preferred().c_str());
  const std::error_code error(static_cast<int>(GetLastError()), std::system_category());
  if (!library) problem = utf8FromPath(path) + ": " + systemMessage(error, path);
  return library;
}

void unloadLibrary(void* library) { FreeLibrary(static_cast<HMODULE>(library)); }

void* exportedAddress(void* library, const char* name) {
  return reinterpret_cast<void*>(GetProcAddress(static_cast<HMODULE>(library), name));
}

std::filesystem::path programPath() {
  std::array<wchar_t, 32768> path{};  // no path is longer
  const DWORD length = GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size()));
  return std::wstring(path.data(), length < path.size() ? length : 0);
}

}  // namespace quiltor::standalone
