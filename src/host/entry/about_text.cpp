#include "host/entry/about_text.h"

#include "library/files/text_pieces.h"

namespace quiltor {
namespace {

// The host's message holds 255 characters; the text stays well below.
constexpr size_t kMaxCharacters = 230;

// A description's entry is one line: line ends in it are written as a backslash and a letter.
std::string withLineEnds(const std::string& entry) { return replaceAll(replaceAll(entry, "\\r", "\r"), "\\n", "\n"); }

}  // namespace

std::string aboutText(const DescriptionSettings& settings) {
  const std::string text =
      "Quiltor\r"
      "The plugin allows you to draw textures on layers and work with patterns directly from AE.\r" +
      withLineEnds(settings.description) + "\rv" + std::to_string(settings.versionMajor) + "." +
      std::to_string(settings.versionMinor) + "." + std::to_string(settings.versionBug);
  return text.substr(0, kMaxCharacters);
}

}  // namespace quiltor
