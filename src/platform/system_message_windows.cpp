#include "platform/system_message.h"

#include <windows.h>

#include <array>

#include "platform/wide_text_windows.h"

namespace quiltor {

std::string systemMessage(const std::error_code& error, const std::filesystem::path& file) {
  if (error.category() != std::system_category()) return error.message();
  // Some messages have room for the file's name. No message has more places to fill.
  const std::wstring name = file.filename().native();
  std::array<DWORD_PTR, 99> inserts{};
  inserts.fill(reinterpret_cast<DWORD_PTR>(name.c_str()));
  std::array<wchar_t, 1024> text{};
  const DWORD length =
      FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_ARGUMENT_ARRAY | FORMAT_MESSAGE_MAX_WIDTH_MASK,
                     nullptr, static_cast<DWORD>(error.value()), 0, text.data(), static_cast<DWORD>(text.size()),
                     reinterpret_cast<va_list*>(inserts.data()));
  std::wstring words(text.data(), length);
  while (!words.empty() && (words.back() == L' ' || words.back() == L'.')) words.pop_back();
  if (words.empty()) words = L"error " + std::to_wstring(error.value());
  return utf8Text(words).value_or("?");
}

}  // namespace quiltor
