#include "standalone/cli/number_order.h"

#include <algorithm>
#include <compare>

namespace quiltor::standalone {
namespace {

bool isDigit(char character) { return character >= '0' && character <= '9'; }

// Takes the digits that the text begins with, without leading zeros.
std::string_view takeNumber(std::string_view& text) {
  const auto end = static_cast<std::size_t>(std::find_if_not(text.begin(), text.end(), isDigit) - text.begin());
  std::string_view digits = text.substr(0, end);
  text.remove_prefix(end);
  digits.remove_prefix(std::min(digits.find_first_not_of('0'), digits.size()));
  return digits;
}

std::strong_ordering compareNumbers(std::string_view a, std::string_view b) {
  return a.size() == b.size() ? a <=> b : a.size() <=> b.size();
}

}  // namespace

bool comesBefore(std::string_view a, std::string_view b) {
  std::string_view restOfA = a, restOfB = b;
  while (!restOfA.empty() && !restOfB.empty()) {
    if (isDigit(restOfA.front()) && isDigit(restOfB.front())) {
      const auto order = compareNumbers(takeNumber(restOfA), takeNumber(restOfB));
      if (std::is_neq(order)) return std::is_lt(order);
      continue;
    }
    if (restOfA.front() != restOfB.front()) {
      return static_cast<unsigned char>(restOfA.front()) < static_cast<unsigned char>(restOfB.front());
    }
    restOfA.remove_prefix(1);
    restOfB.remove_prefix(1);
  }
  return restOfA.empty() == restOfB.empty() ? a < b : restOfA.empty();
}

}  // namespace quiltor::standalone
