#include <windows.h>

#include <array>

#include "base/utf8_path.h"
#include "standalone/host/services/shared_library.h"

namespace quiltor::standalone {
namespace {

// The system's words for an error with a file; some have room for its name.
std::string reason(DWORD error, const std::filesystem::path& path) {
  const std::wstring name = path.filename().wstring();
  std::array<DWORD_PTR, 1> inserts{reinterpret_cast<DWORD_PTR>(name.c_str())};
  std::array<wchar_t, 1024> text{};
  const DWORD length = FormatMessageW(
      FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_ARGUMENT_ARRAY | FORMAT_MESSAGE_MAX_WIDTH_MASK, nullptr, error, 0,
      text.data(), static_cast<DWORD>(text.size()), reinterpret_cast<va_list*>(inserts.data()));
  std::wstring words(text.data(), length);
  while (!words.empty() && (words.back() == L' ' || words.back() == L'.')) words.pop_back();
  if (words.empty()) words = L"error " + std::to_wstring(error);
  return utf8FromPath(path) + ": " + utf8FromPath(words);
}

}  // namespace

void* loadLibrary(const std::filesystem::path& path, std::string& problem) {
  // Without a folder the loader would search its own. No window asks the user about a broken file.
  SetErrorMode(GetErrorMode() | SEM_FAILCRITICALERRORS);
  const HMODULE library = LoadLibraryW(std::filesystem::absolute(path).make_preferred().c_str());
  if (!library) problem = reason(GetLastError(), path);
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
