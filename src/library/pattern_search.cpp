#include "library/pattern_search.h"

#include "library/files/file_exists.h"
#include "library/library_config.h"

namespace quiltor {
namespace {

// With the separator before it.
std::string lastComponent(const std::string& path) {
  const size_t separator = path.find_last_of("/\\");
  return separator == std::string::npos ? "/" + path : path.substr(separator);
}

}  // namespace

std::string findPattern(const std::string& reference) {
  const auto [path, label, name] = threeFields(reference);
  if (reference.empty() || fileExists(path)) return path;
  std::string candidate;
  for (const Library& library : readLibraries(LookUp::PlugIn)) {
    if (library.label == label && library.name == name) candidate = pictureFolder(library) + lastComponent(path);
  }
  return fileExists(candidate) ? candidate : path;
}

}  // namespace quiltor
