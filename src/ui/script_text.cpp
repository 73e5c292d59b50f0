#include "ui/script_text.h"

#include <cstdint>
#include <utility>

#include "library/files/text_pieces.h"

namespace quiltor {
namespace {

constexpr char32_t kReplacement = 0xFFFD;

// With upper-case digits: not every host's script engine knows the others here.
void appendEscape(std::string& text, char16_t unit) {
  constexpr std::string_view kDigits = "0123456789ABCDEF";
  text += "\\u";
  for (int shift = 12; shift >= 0; shift -= 4) text += kDigits[(unit >> shift) & 0xF];
}

void appendCharacter(std::string& text, char32_t character) {
  const bool plain = character >= ' ' && character <= '~' &&
                     std::string_view("\"'\\#").find(static_cast<char>(character)) == std::string_view::npos;
  if (plain) {
    text += static_cast<char>(character);
  } else if (character < 0x10000) {
    appendEscape(text, static_cast<char16_t>(character));
  } else {
    appendEscape(text, static_cast<char16_t>(0xD800 + ((character - 0x10000) >> 10)));
    appendEscape(text, static_cast<char16_t>(0xDC00 + ((character - 0x10000) & 0x3FF)));
  }
}

// Takes one character off the front of the text.
char32_t takeCharacter(std::string_view& text) {
  const auto byteAt = [&](size_t at) { return static_cast<uint8_t>(at < text.size() ? text[at] : 0); };
  const uint8_t first = byteAt(0);
  const size_t length = first < 0x80   ? 1
                        : first < 0xC2 ? 0
                        : first < 0xE0 ? 2
                        : first < 0xF0 ? 3
                        : first < 0xF5 ? 4
                                       : 0;
  char32_t character = length == 1 ? first : first & (0x7F >> length);
  bool wellFormed = length > 0;
  for (size_t at = 1; at < length; ++at) {
    wellFormed = wellFormed && (byteAt(at) & 0xC0) == 0x80;
    character = character << 6 | (byteAt(at) & 0x3F);
  }
  // Written longer than need be, half a surrogate pair, or beyond the last character.
  const bool overlong = (length == 3 && character < 0x800) || (length == 4 && character < 0x10000);
  const bool surrogate = character >= 0xD800 && character < 0xE000;
  if (!wellFormed || overlong || surrogate || character > 0x10FFFF) {
    text.remove_prefix(1);
    return kReplacement;
  }
  text.remove_prefix(length);
  return character;
}

}  // namespace

std::string literalText(std::string_view utf8) {
  std::string text;
  while (!utf8.empty()) appendCharacter(text, takeCharacter(utf8));
  return text;
}

std::string fillPlaceholders(std::string_view script, ScreenPoint mouse, const PatternSelection& selection) {
  const std::pair<const char*, std::string> values[] = {
      {"#WIDTH", "800"},
      {"#HEIGHT", "600"},
      {"#X_POS", intToString(mouse.x)},
      {"#Y_POS", intToString(mouse.y)},
      {"#IMGPATH", literalText(selection.path)},
      {"#v1", literalText(selection.libraryLabel)},
      {"#v2", literalText(selection.libraryName)},
  };
  std::string filled(script);
  for (const auto& [placeholder, value] : values) filled = replaceAll(filled, placeholder, value);
  return filled;
}

}  // namespace quiltor
