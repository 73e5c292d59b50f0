#pragma once

#include <string>

#include "description/language/description.h"

namespace quiltor {

// The whole text of the About box for an effect with these settings, before it is cut to what the host's buffer takes.
std::string aboutText(const DescriptionSettings& settings);

}  // namespace quiltor
