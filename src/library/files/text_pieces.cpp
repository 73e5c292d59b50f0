#include "library/files/text_pieces.h"

#include <cctype>

namespace quiltor {

std::string trimChars(std::string_view text, std::string_view set) {
  const size_t first = text.find_first_not_of(set);
  if (first == std::string_view::npos) return {};
  return std::string(text.substr(first, text.find_last_not_of(set) - first + 1));
}

void splitAtStars(std::string_view text, std::vector<std::string>& pieces) {
  constexpr std::string_view kBlanks = " \t";
  pieces.clear();
  size_t begin = 0;
  for (size_t star; (star = text.find('*', begin)) != std::string_view::npos; begin = star + 1) {
    pieces.push_back(trimChars(text.substr(begin, star - begin), kBlanks));
  }
  pieces.push_back(trimChars(text.substr(begin), kBlanks));
}

std::string toLowerCopy(std::string_view text) {
  std::string lower(text);
  for (char& c : lower) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
  return lower;
}

std::string replaceAll(std::string_view text, std::string_view from, std::string_view to) {
  std::string result(text);
  if (from.empty()) return result;
  for (size_t found = 0; (found = result.find(from, found)) != std::string::npos; found += to.size()) {
    result.replace(found, from.size(), to);
  }
  return result;
}

std::string intToString(int32_t value) { return std::to_string(value); }

}  // namespace quiltor
