#include "description/language/numbers.h"

#include <charconv>
#include <limits>
#include <system_error>

namespace quiltor {
namespace {

// The C library's conversions take a plus sign, std::from_chars does not.
std::string_view withoutBlanksAndPlus(std::string_view text) {
  const size_t first = text.find_first_not_of(" \t\r\n\v\f");
  if (first == std::string_view::npos) return {};
  text.remove_prefix(first);
  if (text.size() > 1 && text[0] == '+' && text[1] != '-') text.remove_prefix(1);
  return text;
}

}  // namespace

int32_t readInteger(std::string_view text) {
  const std::string_view digits = withoutBlanksAndPlus(text);
  int32_t number = 0;
  const auto result = std::from_chars(digits.data(), digits.data() + digits.size(), number);
  if (result.ec == std::errc::result_out_of_range) {
    return digits[0] == '-' ? std::numeric_limits<int32_t>::min() : std::numeric_limits<int32_t>::max();
  }
  return result.ec == std::errc{} ? number : 0;
}

float readFloat(std::string_view text) {
  const std::string_view digits = withoutBlanksAndPlus(text);
  float number = 0;
  const auto result = std::from_chars(digits.data(), digits.data() + digits.size(), number);
  return result.ec == std::errc{} ? number : 0;
}

}  // namespace quiltor
