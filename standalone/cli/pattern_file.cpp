#include "standalone/cli/pattern_file.h"

#include <fstream>
#include <string>

#include "standalone/cli/command_error.h"
#include "standalone/cli/near_miss.h"
#include "standalone/host/picture_file.h"

namespace quiltor::standalone {
namespace {

bool isPng(const std::filesystem::path& path) {
  constexpr char kFirstByteOfPng = '\x89';
  return std::ifstream(path, std::ios::binary).get() == static_cast<unsigned char>(kFirstByteOfPng);
}

}  // namespace

void checkPatternFile(const std::filesystem::path& path) {
  static_cast<void>(readPicture(path, WorldFormat::Argb8));
  const std::string ending = path.extension().string();
  const bool saysPng = sameName(ending, ".png");
  const bool saysJpeg = sameName(ending, ".jpg") || sameName(ending, ".jpeg");
  if (isPng(path) ? !saysPng : !saysJpeg) {
    throw CommandFailure(path.string() + ": holds a " + (isPng(path) ? "PNG" : "JPEG") +
                         " picture; expected a name that ends in " + (isPng(path) ? ".png" : ".jpg or .jpeg"));
  }
}

}  // namespace quiltor::standalone
