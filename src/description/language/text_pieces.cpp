#include "description/language/text_pieces.h"

namespace quiltor {

std::string_view trimmed(std::string_view text) {
  constexpr std::string_view kSpace = " \t\r\n";
  const size_t first = text.find_first_not_of(kSpace);
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(kSpace) - first + 1);
}

std::vector<std::string_view> splitAt(std::string_view text, char separator) {
  std::vector<std::string_view> pieces;
  for (size_t end = text.find(separator); end != std::string_view::npos; end = text.find(separator)) {
    pieces.push_back(text.substr(0, end));
    text.remove_prefix(end + 1);
  }
  pieces.push_back(text);
  return pieces;
}

std::string lowerCased(std::string_view text) {
  std::string lower(text);
  for (char& c : lower) {
    if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
  }
  return lower;
}

std::string_view cutToBytes(std::string_view text, size_t bytes) {
  if (text.size() <= bytes) return text;
  const auto continues = [&](size_t at) { return (static_cast<unsigned char>(text[at]) & 0xC0) == 0x80; };
  // A character has at most three bytes after its first; more of them in a row are not UTF-8 and are cut anywhere.
  constexpr size_t kMostFollowers = 3;
  for (size_t back = 0; back <= kMostFollowers && back <= bytes; ++back) {
    if (!continues(bytes - back)) return text.substr(0, bytes - back);
  }
  return text.substr(0, bytes);
}

}  // namespace quiltor
