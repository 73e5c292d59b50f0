#include "library/cache_names.h"

#include "library/files/text_pieces.h"

namespace quiltor {

int32_t pathHash(std::string_view path) {
  uint32_t hash = 0;
  for (const char c : path) {
    if (c >= 32 && c <= 126 && c != '/' && c != '\\') hash = hash * 31 + static_cast<unsigned char>(c);
  }
  return static_cast<int32_t>(hash);
}

std::string patternFileName(const std::string& path) {
  const std::string stem = path.substr(0, path.size() - 4);
  const size_t separator = stem.find_last_of("/\\:");
  // Deliberate: a separator in front of everything else belongs to the name.
  return separator == std::string::npos || separator == 0 ? stem : stem.substr(separator + 1);
}

std::string convertedPatternFolder(const std::string& folder, const std::string& name) { return folder + "/" + name; }

std::string convertedPatternPath(const std::string& folder, const std::string& name, size_t index) {
  const std::string number = intToString(static_cast<int32_t>(index));
  return convertedPatternFolder(folder, name) + "/" + name + "_" + (index < 10 ? "0" : "") + number + ".png";
}

}  // namespace quiltor
