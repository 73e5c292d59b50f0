#pragma once

#include <string_view>

namespace quiltor {

// The dialogs' scripts as they stand in scripts/, each with what the two share before it. Their placeholders are to be
// filled before a host runs them; a script's last statement gives the dialog's result as text.
std::string_view galleryScript();
std::string_view settingsScript();

}  // namespace quiltor
