#pragma once

#include <string>
#include <string_view>

namespace quiltor {

// What an entry of a folder is called in a path: its name, or its short name where that cannot be said in UTF-8, or "?"
// where neither can. The short name may be empty: there is none.
std::string entryName(std::wstring_view name, std::wstring_view shortName);

}  // namespace quiltor
