#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace quiltor {

// UTF-8 as the system's 16-bit text; nothing when it is not UTF-8.
std::optional<std::wstring> wideText(std::string_view text);

// The system's 16-bit text as UTF-8; nothing when it holds half of a pair.
std::optional<std::string> utf8Text(std::wstring_view text);

// A UTF-8 path as the system's calls take it, however long it is; empty when it is not UTF-8, which no call takes.
std::wstring systemPath(const std::string& path);

// The value of an environment variable; empty when it is not set.
std::string environmentVariable(const wchar_t* name);

}  // namespace quiltor
