#pragma once

#include "description/language/description.h"

namespace quiltor {

// The process-wide description of the effect, filled by the last parseBuiltInDescription(); before the first call it
// holds the defaults of an empty text. Read only; valid as long as the module is loaded.
const Description& effectDescription();

// Parses the built-in description into the process-wide record. The host calls this once, at global setup.
void parseBuiltInDescription();

}  // namespace quiltor
