#pragma once

#include <string>

#include "description/language/description.h"
#include "hostapi/params.h"

namespace quiltor {

// The text that the host shows with a parameter: a popup's items as the host writes them, the label of a checkbox or
// button.
std::string hostText(const ParamRecord& param);

// The host's definition of a parameter of any kind but None, without its name. text is borrowed by the definition.
// appId is the application's: the video editor has no buttons.
PF_ParamDef hostDefinition(const ParamRecord& param, const char* text, A_AppID appId);

}  // namespace quiltor
