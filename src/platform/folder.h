#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace quiltor {

// Paths are UTF-8 and take "/" and "\" as separators; this is the system's own.
extern const char kPathSeparator;

enum class EntryType { Folder, File, Other };

// What stands in a folder. A link has the type of what it leads to. A name that cannot be said in a path (it is not
// UTF-8 or holds a separator) comes through as "?" of type Other.
struct FolderEntry {
  std::string name;
  EntryType type;
};

// The same for two paths only when they lead to the same folder.
using FolderIdentity = std::pair<uint64_t, uint64_t>;

struct FolderContents {
  FolderIdentity identity;
  std::vector<FolderEntry> entries;  // in the order of their names' bytes, without "." and ".."
};

// Nothing when the path is empty or names no folder that can be read.
std::optional<FolderContents> readFolder(const std::string& path);

bool folderExists(const std::string& path) noexcept;

enum class FolderCreation { Created, Exists, NoParent, Failed };

// Makes one folder. Exists also when something else has that name; NoParent when the folder above is missing.
FolderCreation createFolder(const std::string& path) noexcept;

}  // namespace quiltor
