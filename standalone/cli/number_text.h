#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <utility>

namespace quiltor::standalone {

// Numbers as people type and read them, the same in every locale.

// A finite decimal number and nothing else.
[[nodiscard]] std::optional<double> parseNumber(std::string_view text);

// "X,Y": two finite decimal numbers.
[[nodiscard]] std::optional<std::pair<double, double>> parsePair(std::string_view text);

// The shortest text that reads as the same number; no exponent for everyday sizes.
[[nodiscard]] std::string formatNumber(double value);

}  // namespace quiltor::standalone
