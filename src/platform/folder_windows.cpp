#include <windows.h>

#include <direct.h>
#include <algorithm>
#include <cerrno>
#include <string_view>

#include "base/scope_guard.h"
#include "platform/entry_name_windows.h"
#include "platform/folder.h"
#include "platform/wide_text_windows.h"

namespace quiltor {

const char kPathSeparator = '\\';

namespace {

// Attributes say what a link is; what it leads to is what is opened by its name.
EntryType typeOf(const WIN32_FIND_DATAW& entry) {
  if (entry.dwFileAttributes & FILE_ATTRIBUTE_DEVICE) return EntryType::Other;
  return entry.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY ? EntryType::Folder : EntryType::File;
}

std::optional<FolderIdentity> identityOf(const std::wstring& path) {
  const HANDLE folder = CreateFileW(path.c_str(), 0, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                    OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr);
  if (folder == INVALID_HANDLE_VALUE) return std::nullopt;
  const ScopeGuard close([&] { CloseHandle(folder); });
  BY_HANDLE_FILE_INFORMATION information;
  if (!GetFileInformationByHandle(folder, &information)) return std::nullopt;
  return FolderIdentity{information.dwVolumeSerialNumber,
                        uint64_t{information.nFileIndexHigh} << 32 | information.nFileIndexLow};
}

}  // namespace

std::string entryName(std::wstring_view name, std::wstring_view shortName) {
  if (auto text = utf8Text(name)) return std::move(*text);
  return shortName.empty() ? "?" : utf8Text(shortName).value_or("?");
}

std::optional<FolderContents> readFolder(const std::string& path) {
  if (path.empty()) return std::nullopt;
  std::wstring folder = systemPath(path);
  const auto identity = identityOf(folder);
  if (!identity) return std::nullopt;
  // Room for the star, should it make the path a long one.
  if (folder.back() != L'\\' && folder.back() != L':') folder = systemPath(path + "\\");
  WIN32_FIND_DATAW entry;
  const HANDLE search = FindFirstFileW((folder + L"*").c_str(), &entry);
  if (search == INVALID_HANDLE_VALUE) return std::nullopt;
  const ScopeGuard close([&] { FindClose(search); });
  FolderContents contents = {*identity, {}};
  do {
    const std::wstring_view wide = entry.cFileName;
    if (wide == L"." || wide == L"..") continue;
    std::string name = entryName(wide, entry.cAlternateFileName);
    // No file is called by a question mark.
    const EntryType type = name == "?" ? EntryType::Other : typeOf(entry);
    contents.entries.push_back({std::move(name), type});
  } while (FindNextFileW(search, &entry));
  std::sort(contents.entries.begin(), contents.entries.end(),
            [](const FolderEntry& a, const FolderEntry& b) { return a.name < b.name; });
  return contents;
}

bool folderExists(const std::string& path) noexcept {
  try {
    const DWORD attributes = GetFileAttributesW(systemPath(path).c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY);
  } catch (...) {
    return false;
  }
}

FolderCreation createFolder(const std::string& path) noexcept {
  try {
    if (_wmkdir(systemPath(path).c_str()) == 0) return FolderCreation::Created;
  } catch (...) {
    return FolderCreation::Failed;
  }
  if (errno == EEXIST) return FolderCreation::Exists;
  return errno == ENOENT || errno == EINVAL ? FolderCreation::NoParent : FolderCreation::Failed;
}

}  // namespace quiltor
