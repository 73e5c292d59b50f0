#pragma once

#include <string_view>

#include "description/language/description.h"

namespace quiltor {

// Stores one line of the settings section. The key is in small letters; an unknown one changes nothing.
void storeSetting(DescriptionSettings& settings, std::string_view key, std::string_view value);

}  // namespace quiltor
