#include "formats/utf16_text.h"

namespace quiltor {
namespace {

constexpr uint32_t kReplacement = 0xFFFD;

bool isHighSurrogate(uint32_t unit) { return (unit & 0xFC00) == 0xD800; }
bool isLowSurrogate(uint32_t unit) { return (unit & 0xFC00) == 0xDC00; }

void append(std::string& text, uint32_t character) {
  const auto put = [&](uint32_t byte) { text.push_back(static_cast<char>(static_cast<uint8_t>(byte))); };
  if (character < 0x80) {
    put(character);
    return;
  }
  if (character < 0x800) {
    put(0xC0 | character >> 6);
  } else {
    if (character < 0x10000) {
      put(0xE0 | character >> 12);
    } else {
      put(0xF0 | character >> 18);
      put(0x80 | (character >> 12 & 0x3F));
    }
    put(0x80 | (character >> 6 & 0x3F));
  }
  put(0x80 | (character & 0x3F));
}

}  // namespace

std::string utf16ToUtf8(std::span<const uint16_t> units) {
  std::string text;
  for (size_t i = 0; i < units.size() && units[i] != 0; ++i) {
    uint32_t character = units[i];
    if (isHighSurrogate(character) && i + 1 < units.size() && isLowSurrogate(units[i + 1])) {
      character = 0x10000 + ((character & 0x3FF) << 10 | (units[++i] & 0x3FFu));
    } else if (isHighSurrogate(character) || isLowSurrogate(character)) {
      character = kReplacement;
    }
    append(text, character);
  }
  return text;
}

}  // namespace quiltor
