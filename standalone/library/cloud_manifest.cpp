#include "standalone/library/cloud_manifest.h"

#include <algorithm>
#include <charconv>
#include <cstddef>
#include <cstdint>
#include <system_error>
#include <vector>

#include "formats/utf16_text.h"

namespace quiltor::standalone {
namespace {

constexpr std::string_view kLibraryMark = "library+dcx", kPatternMark = "pattern+dcx", kNameKey = "\"name\"";
constexpr std::string_view kBlanks = " \t\r\n";

bool holds(std::string_view text, std::string_view mark) {
  const std::size_t found = text.find(mark);
  // A text that begins with a mark is no manifest.
  return found != std::string_view::npos && found != 0;
}

std::size_t nameKeyOfLibrary(std::string_view text) {
  const std::size_t mark = text.find(kLibraryMark);
  const std::size_t behind = text.find(kNameKey, mark);
  // Another entry begins before the name, or there is none: the library's own stands in front.
  const bool isInFront = behind == std::string_view::npos || text.find('{', mark) < behind;
  return isInFront ? text.rfind(kNameKey, mark) : behind;
}

class StringValue {
 public:
  explicit StringValue(std::string_view text) : text_(text) {}

  // What stands between quotation marks after a colon.
  std::optional<std::string> read() {
    if (!take(':') || !take('"')) return std::nullopt;
    std::string value;
    while (!text_.empty() && text_.front() != '"') {
      if (text_.front() != '\\') {
        value += text_.front();
        text_.remove_prefix(1);
      } else if (!readEscape(value)) {
        return std::nullopt;
      }
    }
    if (text_.empty()) return std::nullopt;
    return value;
  }

 private:
  bool take(char wanted) {
    text_.remove_prefix(std::min(text_.find_first_not_of(kBlanks), text_.size()));
    if (!text_.starts_with(wanted)) return false;
    text_.remove_prefix(1);
    return true;
  }

  bool readEscape(std::string& value) {
    constexpr std::string_view kLetters = "bfnrt", kMeanings = "\b\f\n\r\t";
    if (text_.size() < 2) return false;
    const char letter = text_[1];
    if (letter == 'u') return readUnits(value);
    const std::size_t found = kLetters.find(letter);
    value += found == std::string_view::npos ? letter : kMeanings[found];
    text_.remove_prefix(2);
    return true;
  }

  // All escaped units that follow one another, since two may make one character.
  bool readUnits(std::string& value) {
    constexpr std::size_t kEscapeLength = 6;
    std::vector<uint16_t> units;
    while (text_.starts_with("\\u")) {
      uint16_t unit = 0;
      const char* const digits = text_.data() + 2;
      if (text_.size() < kEscapeLength) return false;
      const auto [end, error] = std::from_chars(digits, digits + 4, unit, 16);
      if (error != std::errc() || end != digits + 4) return false;
      units.push_back(unit);
      text_.remove_prefix(kEscapeLength);
    }
    value += utf16ToUtf8(units);
    return true;
  }

  std::string_view text_;
};

}  // namespace

std::optional<std::string> cloudLibraryName(std::string_view manifest) {
  if (!holds(manifest, kLibraryMark) || !holds(manifest, kPatternMark)) return std::nullopt;
  const std::size_t key = nameKeyOfLibrary(manifest);
  if (key == std::string_view::npos) return std::nullopt;
  return StringValue(manifest.substr(key + kNameKey.size())).read();
}

}  // namespace quiltor::standalone
