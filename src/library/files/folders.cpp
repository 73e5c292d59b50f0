#include "library/files/folders.h"

#include <algorithm>
#include <iterator>
#include <set>
#include <string_view>
#include <utility>

#include "library/files/text_pieces.h"
#include "platform/folder.h"

namespace quiltor {
namespace {

constexpr std::string_view kSeparators = "/\\";

bool endsInAny(const std::string& path, std::string_view characters) {
  return !path.empty() && characters.find(path.back()) != std::string_view::npos;
}

std::vector<std::string> lowered(std::vector<std::string> words) {
  for (std::string& word : words) word = toLowerCopy(word);
  return words;
}

class Lister {
 public:
  explicit Lister(const FolderListOptions& options)
      : options_(options), include_(lowered(options.includeWords)), exclude_(lowered(options.excludeWords)) {}

  bool list(std::string folder) {
    // With a separator behind it, the empty name would be the root of the drive.
    if (folder.empty()) return false;
    if (!endsInAny(folder, "/\\:")) folder += kPathSeparator;
    const auto contents = readFolder(folder);
    if (!contents) return false;
    if (!entered_.insert(contents->identity).second) return true;
    for (const FolderEntry& entry : contents->entries) {
      if (entry.type == EntryType::File && !options_.foldersOnly) offer(folder, entry.name);
      if (entry.type != EntryType::Folder || !options_.recurse) continue;
      if (options_.foldersOnly) offer(folder, entry.name);
      list(folder + entry.name);
    }
    return true;
  }

  std::vector<std::string> takeResults() { return std::move(results_); }

 private:
  void offer(const std::string& folder, const std::string& name) {
    std::string candidate = options_.namesOnly ? name : folder + name;
    const std::string key = toLowerCopy(candidate);
    const auto occurs = [&](const std::string& word) { return key.find(word) != std::string::npos; };
    const bool included = include_.empty() || std::any_of(include_.begin(), include_.end(), occurs);
    if (included && std::none_of(exclude_.begin(), exclude_.end(), occurs)) results_.push_back(std::move(candidate));
  }

  const FolderListOptions& options_;
  const std::vector<std::string> include_;
  const std::vector<std::string> exclude_;
  std::set<FolderIdentity> entered_;
  std::vector<std::string> results_;
};

bool createChain(const std::string& path) {
  switch (createFolder(path)) {
    case FolderCreation::Created:
      return true;
    case FolderCreation::Exists:
      return isFolder(path);
    case FolderCreation::Failed:
      return false;
    case FolderCreation::NoParent:
      break;
  }
  const size_t separator = path.find_last_of(kSeparators);
  if (separator == std::string::npos || !createChain(path.substr(0, separator))) return false;
  return createFolder(path) == FolderCreation::Created;
}

}  // namespace

bool isFolder(std::string path) noexcept {
  if (path.empty()) return false;
  const bool wasRoot = path.find_first_not_of(kSeparators) == std::string::npos;
  while (endsInAny(path, kSeparators)) path.pop_back();
  // The system takes a bare drive's name for that drive's current folder.
  if (wasRoot || path.back() == ':') path += kPathSeparator;
  return folderExists(path);
}

bool createFolderChain(const std::string& path) noexcept {
  try {
    return createChain(path);
  } catch (...) {
    return false;
  }
}

int listFolder(std::vector<std::string>& results, const std::string& folder,
               const FolderListOptions& options) noexcept {
  try {
    Lister lister(options);
    if (!lister.list(folder)) return -1;
    std::vector<std::string> found = lister.takeResults();
    results.insert(results.end(), std::move_iterator(found.begin()), std::move_iterator(found.end()));
    return 0;
  } catch (...) {
    return -1;
  }
}

}  // namespace quiltor
