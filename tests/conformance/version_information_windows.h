#pragma once

#include <windows.h>

#include <stdexcept>
#include <string>
#include <vector>

#include "platform/wide_text_windows.h"

namespace quiltor {

// For tests: what the system shows of a file, as its resource of the version says it.
class VersionInformation {
 public:
  explicit VersionInformation(const std::string& path) {
    const std::wstring wide = systemPath(path);
    DWORD ignored = 0;
    bytes_.resize(GetFileVersionInfoSizeW(wide.c_str(), &ignored));
    const auto size = static_cast<DWORD>(bytes_.size());
    if (size == 0 || !GetFileVersionInfoW(wide.c_str(), 0, size, bytes_.data())) {
      throw std::runtime_error(path + " has no version");
    }
  }

  [[nodiscard]] const VS_FIXEDFILEINFO& fixed() const { return *static_cast<VS_FIXEDFILEINFO*>(value(L"\\")); }
  // In English, in UTF-16.
  [[nodiscard]] std::string text(const std::string& name) const {
    const std::wstring place = L"\\StringFileInfo\\040904b0\\" + wideText(name).value_or(L"");
    return utf8Text(static_cast<const wchar_t*>(value(place))).value_or("");
  }

 private:
  void* value(const std::wstring& place) const {
    void* found = nullptr;
    UINT size = 0;
    if (!VerQueryValueW(bytes_.data(), place.c_str(), &found, &size) || size == 0) {
      throw std::runtime_error("the version says nothing of " + utf8Text(place).value_or(""));
    }
    return found;
  }

  std::vector<char> bytes_;
};

}  // namespace quiltor
