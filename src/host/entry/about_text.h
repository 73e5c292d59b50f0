#pragma once

#include <string>

#include "description/language/description.h"

namespace quiltor {

// The text of the About box for an effect with these settings: its first 230 characters, which the host's buffer holds.
std::string aboutText(const DescriptionSettings& settings);

}  // namespace quiltor
