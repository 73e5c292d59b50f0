#include "standalone/cli/line_text.h"

#include <algorithm>

namespace quiltor::standalone {
namespace {

constexpr unsigned char kFirstPrintable = 0x20, kDelete = 0x7F;

bool continuesCharacter(char c) { return (static_cast<unsigned char>(c) & 0xC0) == 0x80; }

}  // namespace

std::string printable(std::string_view text) {
  std::string clean(text);
  for (char& c : clean) {
    const auto byte = static_cast<unsigned char>(c);
    if (byte < kFirstPrintable || byte == kDelete) c = ' ';
  }
  return clean;
}

std::string quoted(std::string_view text) { return std::string("\"").append(printable(text)).append("\""); }

std::string counted(std::size_t count, std::string_view noun) {
  const bool endsInY = noun.ends_with('y');
  const std::string plural = endsInY ? std::string(noun.substr(0, noun.size() - 1)) + "ies" : std::string(noun) + "s";
  return std::to_string(count) + " " + (count == 1 ? std::string(noun) : plural);
}

std::string ordinal(std::size_t number) {
  const bool teen = number / 10 % 10 == 1;
  const std::size_t last = teen ? 0 : number % 10;
  return std::to_string(number) + (last == 1 ? "st" : last == 2 ? "nd" : last == 3 ? "rd" : "th");
}

std::size_t columnsOf(std::string_view text) {
  return text.size() - static_cast<std::size_t>(std::ranges::count_if(text, continuesCharacter));
}

std::string shortened(std::string_view text, std::size_t length) {
  constexpr std::string_view kDots = "...";
  const std::string clean = printable(text);
  std::size_t characters = 0, kept = clean.size();
  for (std::size_t i = 0; i < clean.size(); ++i) {
    if (continuesCharacter(clean[i])) continue;
    if (characters + kDots.size() == length) kept = i;
    if (++characters > length) return clean.substr(0, kept) + std::string(kDots);
  }
  return clean;
}

}  // namespace quiltor::standalone
