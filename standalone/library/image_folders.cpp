#include "standalone/library/image_folders.h"

#include <algorithm>
#include <array>
#include <set>

#include "library/files/text_pieces.h"

namespace quiltor::standalone {
namespace {

constexpr std::string_view kThumbnailFolder = ".cache";

bool isImage(const FolderEntry& entry) { return entry.type == EntryType::File && isImageName(entry.name); }

class Walk {
 public:
  Walk(const std::function<void(const std::string&, bool)>& see, std::optional<FolderIdentity> above) : see_(see) {
    if (above) entered_.insert(*above);
  }

  void enter(const std::string& path) {
    const auto contents = readFolder(path);
    if (!contents || !entered_.insert(contents->identity).second) return;
    see_(path, std::ranges::any_of(contents->entries, isImage));
    for (const FolderEntry& entry : contents->entries) {
      if (entry.type == EntryType::Folder && entry.name != kThumbnailFolder) enter(pathIn(path, entry.name));
    }
  }

 private:
  const std::function<void(const std::string&, bool)>& see_;
  std::set<FolderIdentity> entered_;
};

}  // namespace

bool isImageName(std::string_view name) {
  const std::string lower = toLowerCopy(std::string(name));
  return std::ranges::any_of(std::array{".png", ".jpg", ".jpeg"},
                             [&](std::string_view ending) { return lower.ends_with(ending); });
}

std::string pathIn(const std::string& folder, const std::string& name) {
  return folder.ends_with(kPathSeparator) ? folder + name : folder + kPathSeparator + name;
}

void forEachImageFolder(const std::string& folder, const std::function<void(const std::string& path, bool)>& see,
                        std::optional<FolderIdentity> above) {
  Walk(see, above).enter(folder);
}

std::vector<std::string> imagesIn(const std::string& folder) {
  std::vector<std::string> images;
  const auto contents = readFolder(folder);
  if (!contents) return images;
  for (const FolderEntry& entry : contents->entries) {
    if (isImage(entry)) images.push_back(pathIn(folder, entry.name));
  }
  return images;
}

std::vector<std::string> libraryImages(const Library& library, bool flatten) {
  const std::string folder = pictureFolder(library);
  // Deliberate: a configured folder itself, which has no name, never stands for those below it.
  if (!flatten || library.name.empty() || library.label == "CLOUD") return imagesIn(folder);
  std::vector<std::string> images;
  forEachImageFolder(folder, [&](const std::string& path, bool) {
    const std::vector<std::string> more = imagesIn(path);
    images.insert(images.end(), more.begin(), more.end());
  });
  return images;
}

}  // namespace quiltor::standalone
