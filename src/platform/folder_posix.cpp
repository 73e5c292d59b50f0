#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>

#include <algorithm>
#include <cerrno>
#include <string_view>

#include "base/scope_guard.h"
#include "platform/folder.h"
#include "platform/system_path_posix.h"

namespace quiltor {

const char kPathSeparator = '/';

namespace {

// How many bytes the character that begins the text has; 0 when it is not UTF-8.
size_t characterLength(std::string_view text) {
  const auto byte = [&](size_t at) { return at < text.size() ? static_cast<unsigned char>(text[at]) : 0U; };
  const auto continues = [&](size_t at) { return (byte(at) & 0xC0U) == 0x80U; };
  const unsigned first = byte(0);
  if (first < 0x80) return 1;
  if (first < 0xC2 || first > 0xF4 || !continues(1)) return 0;
  if (first < 0xE0) return 2;
  if (!continues(2)) return 0;
  // Overlong forms, surrogates and what lies behind the last character.
  if (first == 0xE0 && byte(1) < 0xA0) return 0;
  if (first == 0xED && byte(1) > 0x9F) return 0;
  if (first < 0xF0) return 3;
  if (first == 0xF0 && byte(1) < 0x90) return 0;
  if (first == 0xF4 && byte(1) > 0x8F) return 0;
  return continues(3) ? 4 : 0;
}

bool canBeSaidInAPath(std::string_view name) {
  if (name.find('\\') != std::string_view::npos) return false;
  while (!name.empty()) {
    const size_t length = characterLength(name);
    if (length == 0) return false;
    name.remove_prefix(length);
  }
  return true;
}

EntryType typeOf(mode_t mode) {
  if (S_ISDIR(mode)) return EntryType::Folder;
  return S_ISREG(mode) ? EntryType::File : EntryType::Other;
}

EntryType typeOf(int folder, const dirent& entry) {
  if (entry.d_type == DT_DIR) return EntryType::Folder;
  if (entry.d_type == DT_REG) return EntryType::File;
  // A link, or a file system that does not tell.
  struct stat status;
  return fstatat(folder, entry.d_name, &status, 0) == 0 ? typeOf(status.st_mode) : EntryType::Other;
}

}  // namespace

std::optional<FolderContents> readFolder(const std::string& path) {
  DIR* const folder = path.empty() ? nullptr : opendir(systemPath(path).c_str());
  if (!folder) return std::nullopt;
  const ScopeGuard close([&] { closedir(folder); });
  struct stat status;
  if (fstat(dirfd(folder), &status) != 0) return std::nullopt;
  FolderContents contents = {{status.st_dev, status.st_ino}, {}};
  while (const dirent* entry = readdir(folder)) {
    const std::string_view name = entry->d_name;
    if (name == "." || name == "..") continue;
    if (canBeSaidInAPath(name)) {
      contents.entries.push_back({std::string(name), typeOf(dirfd(folder), *entry)});
    } else {
      contents.entries.push_back({"?", EntryType::Other});
    }
  }
  std::sort(contents.entries.begin(), contents.entries.end(),
            [](const FolderEntry& a, const FolderEntry& b) { return a.name < b.name; });
  return contents;
}

bool folderExists(const std::string& path) noexcept {
  try {
    struct stat status;
    return stat(systemPath(path).c_str(), &status) == 0 && S_ISDIR(status.st_mode);
  } catch (...) {
    return false;
  }
}

FolderCreation createFolder(const std::string& path) noexcept {
  try {
    if (mkdir(systemPath(path).c_str(), 0777) == 0) return FolderCreation::Created;
  } catch (...) {
    return FolderCreation::Failed;
  }
  if (errno == EEXIST) return FolderCreation::Exists;
  return errno == ENOENT || errno == EINVAL ? FolderCreation::NoParent : FolderCreation::Failed;
}

}  // namespace quiltor
