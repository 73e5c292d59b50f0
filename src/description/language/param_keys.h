#pragma once

#include <array>
#include <string_view>

#include "description/language/description.h"

namespace quiltor {

// A value as the text writes it: "true", "false" or up to three numbers between bars. What is not written is 0.
std::array<float, 4> readValue(std::string_view text);

// Stores one line of a parameter section. The key is in small letters. Returns whether it is a parameter's key; another
// one changes nothing.
bool storeParamKey(ParamRecord& param, std::string_view key, std::string_view value);

}  // namespace quiltor
