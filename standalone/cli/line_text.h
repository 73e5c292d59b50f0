#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace quiltor::standalone {

// Texts from files and for lines that people read.

// With blanks for control characters, which could break the line or drive the terminal.
[[nodiscard]] std::string printable(std::string_view text);

// The same between quotation marks.
[[nodiscard]] std::string quoted(std::string_view text);

// The same of a name that a file gives, which may have any length: its beginning.
[[nodiscard]] std::string quotedName(std::string_view name);

// "1 pattern", "2 patterns".
[[nodiscard]] std::string counted(std::size_t count, std::string_view noun);

// "1st", "2nd", "3rd", "4th".
[[nodiscard]] std::string ordinal(std::size_t number);

// How many columns a text of UTF-8 takes, for everyday scripts: its characters.
[[nodiscard]] std::size_t columnsOf(std::string_view text);

// At most `length` characters of UTF-8, the last of them three dots when something is cut off.
[[nodiscard]] std::string shortened(std::string_view text, std::size_t length);

}  // namespace quiltor::standalone
