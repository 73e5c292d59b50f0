#include "library/unfinished_png.h"

#include <atomic>
#include <charconv>
#include <string_view>
#include <utility>
#include <vector>

#include "formats/image_file.h"
#include "library/files/folders.h"
#include "platform/file.h"
#include "platform/process.h"

namespace quiltor {
namespace {

// Every listing of the library leaves out what has ".cache" in its name.
constexpr std::string_view kPrefix = ".cache-";

// Unlike any other's, in this process and in all that run.
std::string temporaryName() {
  static std::atomic<uint32_t> count = 0;
  return std::string(kPrefix) + std::to_string(processNumber()) + "-" + std::to_string(++count);
}

// The process that a temporary name belongs to; 0 for any other name.
int64_t ownerOf(std::string_view name) {
  int64_t owner = 0;
  if (!name.starts_with(kPrefix)) return owner;
  name.remove_prefix(kPrefix.size());
  const auto [end, error] = std::from_chars(name.data(), name.data() + name.size(), owner);
  return error == std::errc() && end != name.data() + name.size() && *end == '-' ? owner : 0;
}

}  // namespace

UnfinishedPng::UnfinishedPng(std::string path)
    : path_(std::move(path)), temporary_(path_.substr(0, path_.find_last_of("/\\") + 1) + temporaryName()) {}

UnfinishedPng::UnfinishedPng(UnfinishedPng&& other) noexcept
    : path_(std::exchange(other.path_, {})), temporary_(std::exchange(other.temporary_, {})) {}

UnfinishedPng::~UnfinishedPng() {
  if (!temporary_.empty()) removeFile(temporary_);
}

int32_t UnfinishedPng::write(const PatternImage& image) noexcept {
  // A file that is still open cannot be deleted everywhere, and where it can, it keeps its room on a full disk.
  return SavePngImage(temporary_, image, AfterEncoderError::Close);
}

int32_t UnfinishedPng::finish() noexcept {
  if (!replaceFile(temporary_, path_)) return -1;
  temporary_.clear();
  return 0;
}

void removeUnfinished(const std::string& folder) noexcept {
  try {
    std::vector<std::string> names;
    listFolder(names, folder, {.namesOnly = true, .includeWords = {std::string(kPrefix)}});
    for (const std::string& name : names) {
      const int64_t owner = ownerOf(name);
      if (owner > 0 && !processRuns(owner)) removeFile(folder + "/" + name);
    }
  } catch (...) {
    // They are in nobody's way.
  }
}

}  // namespace quiltor
