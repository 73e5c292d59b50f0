#pragma once

#include <string>
#include <string_view>

#include "host/pattern_selection.h"
#include "platform/cursor.h"

namespace quiltor {

// The text as it may stand inside the double quotes of a script's string literal, from which it cannot break out. In
// ASCII; what is not UTF-8 becomes U+FFFD. A "#" is written as a number, so that no placeholder comes in with a value.
std::string literalText(std::string_view utf8);

// The script with its placeholders filled: the dialog's size, where the mouse is, and the selection.
std::string fillPlaceholders(std::string_view script, ScreenPoint mouse, const PatternSelection& selection);

}  // namespace quiltor
