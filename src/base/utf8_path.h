#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace quiltor {

// Text is UTF-8 everywhere here, and so are paths in it. Deliberate: path's own conversions are not used, since on
// Windows they take text to be in the system's code page, which lacks most characters.

// Throws std::filesystem::filesystem_error on a system of 16-bit names for text that is not UTF-8.
inline std::filesystem::path pathFromUtf8(std::string_view text) {
  return std::u8string_view(reinterpret_cast<const char8_t*>(text.data()), text.size());
}

// With the path's own separators. Throws std::filesystem::filesystem_error for a 16-bit name with half of a pair.
inline std::string utf8FromPath(const std::filesystem::path& path) {
  const std::u8string text = path.u8string();
  return {reinterpret_cast<const char*>(text.data()), text.size()};
}

// With "/" as separator.
inline std::string genericUtf8FromPath(const std::filesystem::path& path) {
  const std::u8string text = path.generic_u8string();
  return {reinterpret_cast<const char*>(text.data()), text.size()};
}

}  // namespace quiltor
