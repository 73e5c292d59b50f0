#include "standalone/cli/pattern_file.h"

#include <cstdint>
#include <fstream>
#include <utility>

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
  const std::string ending = path.extension().string();
  const bool saysPng = sameName(ending, ".png");
  const bool saysJpeg = sameName(ending, ".jpg") || sameName(ending, ".jpeg");
  if (isPng(path) ? !saysPng : !saysJpeg) {
    throw CommandFailure(path.string() + ": holds a " + (isPng(path) ? "PNG" : "JPEG") +
                         " picture; expected a name that ends in " + (isPng(path) ? ".png" : ".jpg or .jpeg"));
  }
}

void writePicture(const std::filesystem::path& path, PsPattern pattern) {
  const PatternImage image = {static_cast<int32_t>(pattern.width), static_cast<int32_t>(pattern.height), 4,
                              std::move(pattern.pixels)};
  if (SavePngImage(path.string(), image) != 0) {
    throw CommandFailure("the pattern cannot be written to the temporary file " + path.string());
  }
}

}  // namespace

PatternFile::PatternFile(const std::string& typed) : path_(typed) {
  if (const auto choice = parsePatternChoice(typed)) {
    PsPattern pattern = choosePattern(*choice);
    path_ = folder_.emplace().path() / "pattern.png";
    writePicture(path_, std::move(pattern));
  } else {
    checkPicture(path_);
  }
}

}  // namespace quiltor::standalone
