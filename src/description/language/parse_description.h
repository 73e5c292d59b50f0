#pragma once

#include <string_view>

#include "description/language/description.h"
#include "description/language/include_directive.h"

namespace quiltor {

// Reads a description text of any contents: what it does not know is ignored, a number that does not read is 0, and an
// exception on the way (an included file that cannot be read, no memory) leaves the record as far as it was filled.
Description parseDescription(std::string_view text, const IncludeReader& readInclude = readIncludedFile);

}  // namespace quiltor
