#include "standalone/library/library_scan.h"

#include <algorithm>
#include <cstddef>
#include <string_view>
#include <utility>

#include "library/files/folders.h"
#include "library/files/read_text.h"
#include "library/files/text_pieces.h"
#include "library/files/user_data_folder.h"
#include "platform/folder.h"
#include "standalone/library/cloud_manifest.h"
#include "standalone/library/image_folders.h"
#include "standalone/library/library_files.h"

namespace quiltor::standalone {
namespace {

constexpr std::string_view kSeparators = "/\\";

std::string lastComponent(const std::string& path) { return path.substr(path.find_last_of(kSeparators) + 1); }

// A path below the configured folder as the gallery shows it.
std::string shownPath(const std::string& folder, const std::string& path) {
  std::string relative = path.substr(folder.size());
  relative.erase(0, relative.find_first_not_of(kSeparators));
  std::string shown;
  for (const char c : relative) {
    if (kSeparators.find(c) == std::string_view::npos) {
      shown += c;
    } else {
      shown += " | ";
    }
  }
  return shown;
}

bool hasLineEnd(const std::string& text) { return text.find_first_of("\r\n") != std::string::npos; }

bool isReadAgain(const Library& library) {
  const auto fields = threeFields(listLine(library));
  return fields[0] == library.label && fields[1] == library.name && fields[2] == library.path &&
         !hasLineEnd(library.name + library.path);
}

class Search {
 public:
  void searchFolder(const std::string& folder, bool flatten) {
    const auto contents = readFolder(folder);
    if (!contents) return;
    const std::string label = lastComponent(folder);
    if (!imagesIn(folder).empty()) add({label, "", folder});
    for (const FolderEntry& entry : contents->entries) {
      if (entry.type != EntryType::Folder || entry.name == ".cache") continue;
      const std::string subfolder = pathIn(folder, entry.name);
      bool any = false;
      const auto see = [&](const std::string& path, bool holdsImages) {
        any = any || holdsImages;
        if (holdsImages && !flatten) add({label, shownPath(folder, path), path});
      };
      forEachImageFolder(subfolder, see, contents->identity);
      if (any && flatten) add({label, entry.name, subfolder});
    }
  }

  void searchCloud(const std::string& folder) {
    std::vector<std::string> files;
    listFolder(files, folder, {.recurse = true, .includeWords = {"manifest"}});
    for (const std::string& file : files) {
      if (lastComponent(file) != "manifest") continue;
      if (auto name = cloudLibraryName(readWholeFile(file))) add({"CLOUD", std::move(*name), file});
    }
  }

  FoundLibraries take() { return std::move(found_); }

 private:
  void add(Library library) {
    if (isReadAgain(library)) {
      found_.libraries.push_back(std::move(library));
    } else {
      found_.leftOut.push_back(std::move(library.path));
    }
  }

  FoundLibraries found_;
};

}  // namespace

FoundLibraries findLibraries(const LibrarySettings& settings) {
  Search search;
  std::vector<std::string> folders{settings.baseFolder};
  folders.insert(folders.end(), settings.addFolders.begin(), settings.addFolders.end());
  for (const std::string& folder : folders) {
    if (isSet(folder)) search.searchFolder(folder, settings.flattenSubfolders);
  }
  const std::string user = getUserDataFolder(false);
  if (settings.loadFromCloud && !user.empty()) search.searchCloud(user + "/Adobe/Creative Cloud Libraries/LIBS");
  return search.take();
}

}  // namespace quiltor::standalone
