#pragma once

#include <string_view>

namespace quiltor::standalone {

// Whether a text comes before another one when the numbers in both count by their values: "a9" before "a10". Texts that
// are equal so far are in the order of their bytes.
[[nodiscard]] bool comesBefore(std::string_view a, std::string_view b);

}  // namespace quiltor::standalone
