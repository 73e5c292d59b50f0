#include "host/entry/about_text.h"

#include <string_view>

namespace quiltor {
namespace {

// Description files are read line by line: line ends inside an entry are written as a backslash and a letter.
std::string withLineEnds(std::string_view entry) {
  std::string text;
  for (size_t at = 0; at < entry.size(); ++at) {
    const std::string_view pair = entry.substr(at, 2);
    if (pair == "\\r" || pair == "\\n") {
      text += pair == "\\r" ? '\r' : '\n';
      ++at;
    } else {
      text += entry[at];
    }
  }
  return text;
}

}  // namespace

std::string aboutText(const DescriptionSettings& settings) {
  return "Quiltor\r"
         "The plugin allows you to draw textures on layers and work with patterns directly from AE.\r" +
         withLineEnds(settings.description) + "\rv" + std::to_string(settings.versionMajor) + "." +
         std::to_string(settings.versionMinor) + "." + std::to_string(settings.versionBug);
}

}  // namespace quiltor
