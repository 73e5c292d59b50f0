#include "standalone/cli/line_text.h"

#include <algorithm>

namespace quiltor::standalone {
namespace {

constexpr unsigned char kFirstPrintable = 0x20, kDelete = 0x7F;

bool continuesCharacter(char c) { return (static_cast<unsigned char>(c) & 0xC0) == 0x80; }

}  // namespace

std::string printable(std::string_view text) {
  std::string clean;
  while (!text.empty()) {
    const auto first = static_cast<unsigned char>(text[0]);
    const auto second = static_cast<unsigned char>(text.size() > 1 ? text[1] : '\0');
    // Of those behind ASCII too, which are two bytes long.
    const bool isLongControl = first == 0xC2 && second >= 0x80 && second < 0xA0;
    clean += isLongControl || first < kFirstPrintable || first == kDelete ? ' ' : text[0];
    text.remove_prefix(isLongControl ? 2 : 1);
  }
  return clean;
}

std::string quoted(std::string_view text) { return std::string("\"").append(printable(text)).append("\""); }

std::string quotedName(std::string_view name) {
  constexpr std::size_t kMostCharacters = 60;
  return quoted(shortened(name, kMostCharacters));
}

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
