#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace quiltor {

// Without the blanks, tabs and line ends at both ends.
std::string_view trimmed(std::string_view text);

// The pieces between the separators, one more than there are separators; an empty text is one empty piece.
std::vector<std::string_view> splitAt(std::string_view text, char separator);

// With the letters A to Z made small; the same in every locale.
std::string lowerCased(std::string_view text);

// The first bytes of a UTF-8 text, at most so many, without the beginning of a character that does not fit whole.
std::string_view cutToBytes(std::string_view text, size_t bytes);

}  // namespace quiltor
