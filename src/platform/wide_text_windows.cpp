#include "platform/wide_text_windows.h"

#include <windows.h>

#include <algorithm>

namespace quiltor {
namespace {

// From this length on some calls take only the form that begins with "\\?\". A new folder must leave room for the
// twelve characters of a short file name.
constexpr size_t kLongPath = 248;

std::wstring fullPath(const std::wstring& path) {
  std::wstring full(GetFullPathNameW(path.c_str(), 0, nullptr, nullptr), L'\0');
  full.resize(GetFullPathNameW(path.c_str(), static_cast<DWORD>(full.size()), full.data(), nullptr));
  return full;
}

}  // namespace

std::optional<std::wstring> wideText(std::string_view text) {
  if (text.empty()) return std::wstring();
  const int bytes = static_cast<int>(text.size());
  std::wstring wide(text.size(), L'\0');  // never more units than bytes
  const int units = MultiByteToWideChar(CP_UTF8, MB_ERR_INVALID_CHARS, text.data(), bytes, wide.data(), bytes);
  if (units == 0) return std::nullopt;
  wide.resize(static_cast<size_t>(units));
  return wide;
}

std::optional<std::string> utf8Text(std::wstring_view text) {
  if (text.empty()) return std::string();
  const int units = static_cast<int>(text.size());
  std::string narrow(3 * text.size(), '\0');
  const int bytes = WideCharToMultiByte(CP_UTF8, WC_ERR_INVALID_CHARS, text.data(), units, narrow.data(), 3 * units,
                                        nullptr, nullptr);
  if (bytes == 0) return std::nullopt;
  narrow.resize(static_cast<size_t>(bytes));
  return narrow;
}

std::wstring systemPath(const std::string& path) {
  std::wstring wide = wideText(path).value_or(L"");
  std::replace(wide.begin(), wide.end(), L'/', L'\\');
  if (wide.size() < kLongPath || wide.starts_with(LR"(\\?\)")) return wide;
  const std::wstring full = fullPath(wide);
  if (full.starts_with(LR"(\\?\)")) return full;
  return full.starts_with(LR"(\\)") ? LR"(\\?\UNC\)" + full.substr(2) : LR"(\\?\)" + full;
}

std::string environmentVariable(const wchar_t* name) {
  std::wstring value(GetEnvironmentVariableW(name, nullptr, 0), L'\0');
  value.resize(GetEnvironmentVariableW(name, value.data(), static_cast<DWORD>(value.size())));
  return utf8Text(value).value_or("");
}

}  // namespace quiltor
