#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace quiltor {

// The text without the characters of the set at its beginning and end.
std::string trimChars(std::string_view text, std::string_view set);

// The pieces between "*" characters, empty ones too, each trimmed of spaces and tabs: one more than there are stars.
// pieces is cleared first.
void splitAtStars(std::string_view text, std::vector<std::string>& pieces);

// A copy with each byte passed through the C library's tolower.
std::string toLowerCopy(std::string_view text);

// A copy with every occurrence of from replaced by to, left to right; what was put in is not searched again. An empty
// from occurs nowhere.
std::string replaceAll(std::string_view text, std::string_view from, std::string_view to);

// Decimal, without padding.
std::string intToString(int32_t value);

}  // namespace quiltor
