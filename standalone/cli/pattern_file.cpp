#include "standalone/cli/pattern_file.h"

#include <cstdint>
#include <fstream>
#include <utility>

#include "base/utf8_path.h"
#include "formats/image_file.h"
#include "standalone/cli/command_error.h"
#include "standalone/cli/near_miss.h"
#include "standalone/cli/pattern_choice.h"
#include "standalone/host/picture_file.h"

namespace quiltor::standalone {
namespace {

bool isPng(const std::filesystem::path& path) {
  constexpr char kFirstByteOfPng = '\x89';
  return std::ifstream(path, std::ios::binary).get() == static_cast<unsigned char>(kFirstByteOfPng);
}

void checkPicture(const std::filesystem::path& path) {
  static_cast<void>(readPicture(path, WorldFormat::Argb8));
  const std::string ending = utf8FromPath(path.extension());
  const bool saysPng = sameName(ending, ".png");
  const bool saysJpeg = sameName(ending, ".jpg") || sameName(ending, ".jpeg");
  if (isPng(path) ? !saysPng : !saysJpeg) {
    throw CommandFailure(utf8FromPath(path) + ": holds a " + (isPng(path) ? "PNG" : "JPEG") +
                         " picture; expected a name that ends in " + (isPng(path) ? ".png" : ".jpg or .jpeg"));
  }
}

void writePicture(const std::filesystem::path& path, PsPattern pattern) {
  const PatternImage image = {static_cast<int32_t>(pattern.width), static_cast<int32_t>(pattern.height), 4,
                              std::move(pattern.pixels)};
  if (SavePngImage(utf8FromPath(path), image) != 0) {
    throw CommandFailure("the pattern cannot be written to the temporary file " + utf8FromPath(path));
  }
}

}  // namespace

PatternFile::PatternFile(const std::string& typed) : path_(pathFromUtf8(typed)) {
  if (const auto choice = parsePatternChoice(typed)) {
    PsPattern pattern = choosePattern(*choice);
    path_ = folder_.emplace().path() / "pattern.png";
    writePicture(path_, std::move(pattern));
  } else {
    checkPicture(path_);
  }
}

}  // namespace quiltor::standalone
