#include "standalone/cli/number_text.h"

#include <array>
#include <charconv>
#include <cmath>
#include <system_error>

namespace quiltor::standalone {

std::optional<double> parseNumber(std::string_view text) {
  if (text.starts_with('+')) {
    text.remove_prefix(1);
    if (text.starts_with('-')) return std::nullopt;
  }
  double value = 0;
  const char* const end = text.data() + text.size();
  const auto [stop, error] = std::from_chars(text.data(), end, value);
  if (error != std::errc() || stop != end || !std::isfinite(value)) return std::nullopt;
  return value;
}

std::optional<std::pair<double, double>> parsePair(std::string_view text) {
  const auto comma = text.find(',');
  if (comma == std::string_view::npos) return std::nullopt;
  const auto x = parseNumber(text.substr(0, comma));
  const auto y = parseNumber(text.substr(comma + 1));
  if (!x || !y) return std::nullopt;
  return std::pair(*x, *y);
}

std::string formatNumber(double value) {
  std::array<char, 64> digits{};
  const auto [end, error] = std::to_chars(digits.data(), digits.data() + digits.size(), value);
  return error == std::errc() ? std::string(digits.data(), end) : "?";
}

}  // namespace quiltor::standalone
