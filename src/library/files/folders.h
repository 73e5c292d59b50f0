#pragma once

#include <string>
#include <vector>

namespace quiltor {

// Paths take "/" and "\" as separators. Nothing here throws.

// Whether the path names a folder. Separators at its end do not count; a drive's name means its root.
bool isFolder(std::string path) noexcept;

// Makes the folder and those above it that are missing. True when the folder is there in the end.
// Deliberate: a path that ends in a separator and whose parents were missing is made as well, yet gives false.
bool createFolderChain(const std::string& path) noexcept;

// Words are looked for anywhere in a candidate, without regard to case; the empty word is in every candidate.
struct FolderListOptions {
  bool recurse = false;                        // subfolders are entered; else they are not listed either
  bool foldersOnly = false;                    // list the subfolders instead of the files
  bool namesOnly = false;                      // a candidate is a bare name; else the full path
  std::vector<std::string> includeWords = {};  // at least one of them; no word at all lets everything pass
  std::vector<std::string> excludeWords = {};  // none of them
};

// Appends what the folder holds: subfolders before what is in them, and both before what comes next. Returns 0; -1,
// without touching the results, when the folder cannot be read, as when its name is empty. Subfolders that cannot be
// read are passed over. Each folder is entered once, however many links lead to it, so that loops end.
int listFolder(std::vector<std::string>& results, const std::string& folder, const FolderListOptions& options) noexcept;

}  // namespace quiltor
