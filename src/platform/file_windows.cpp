#include <io.h>
#include <windows.h>

#include <cerrno>
#include <utility>

#include "platform/file.h"
#include "platform/wide_text_windows.h"

namespace quiltor {
namespace {

// A file cannot be replaced while somebody has it open. Whoever looks whether it is there, or for a virus, is soon
// done.
constexpr int kMostAttempts = 40;
constexpr DWORD kPauseMilliseconds = 5;

bool isFolder(const std::wstring& path) {
  const DWORD attributes = GetFileAttributesW(path.c_str());
  return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY);
}

DWORD replace(const std::wstring& from, const std::wstring& to) {
  for (int attempt = 0; !MoveFileExW(from.c_str(), to.c_str(), MOVEFILE_REPLACE_EXISTING); ++attempt) {
    const DWORD error = GetLastError();
    const bool isInUse = error == ERROR_SHARING_VIOLATION || (error == ERROR_ACCESS_DENIED && !isFolder(to));
    if (!isInUse || attempt == kMostAttempts) return error;
    Sleep(kPauseMilliseconds);
  }
  return ERROR_SUCCESS;
}

}  // namespace

std::FILE* openFile(const std::string& path, const char* mode) noexcept {
  try {
    const std::wstring wide = systemPath(path);
    std::FILE* const file = _wfopen(wide.c_str(), wideText(mode).value_or(L"").c_str());
    // The system says that a folder may not be opened, and not why.
    if (!file && isFolder(wide)) errno = EISDIR;
    return file;
  } catch (...) {
    errno = ENOMEM;
    return nullptr;
  }
}

bool appendLine(const std::string& path, std::string&& line) noexcept {
  try {
    const std::string bytes = std::move(line) + "\r\n";
    const HANDLE file = CreateFileW(systemPath(path).c_str(), FILE_APPEND_DATA | FILE_READ_DATA | SYNCHRONIZE,
                                    FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr, OPEN_ALWAYS,
                                    FILE_ATTRIBUTE_NORMAL, nullptr);
    if (file == INVALID_HANDLE_VALUE) return false;
    // A byte that no file has stands for the end: not every file system finds it and writes there in one step. Whoever
    // closes the file gives it back.
    OVERLAPPED end{};
    end.OffsetHigh = 0x7FFFFFFF;
    LockFileEx(file, LOCKFILE_EXCLUSIVE_LOCK, 0, 1, 0, &end);
    DWORD count = 0;
    const bool written = WriteFile(file, bytes.data(), static_cast<DWORD>(bytes.size()), &count, nullptr) != 0;
    CloseHandle(file);
    return written && count == bytes.size();
  } catch (...) {
    return false;
  }
}

int64_t fileSize(std::FILE* file) {
  const int64_t size = _filelengthi64(_fileno(file));
  return size < 0 ? 0 : size;
}

bool replaceFile(const std::string& from, const std::string& to) noexcept {
  try {
    return replace(systemPath(from), systemPath(to)) == ERROR_SUCCESS;
  } catch (...) {
    return false;
  }
}

std::error_code replaceFile(const std::filesystem::path& from, const std::filesystem::path& to) noexcept {
  return {static_cast<int>(replace(from.native(), to.native())), std::system_category()};
}

void removeFile(const std::string& path) noexcept {
  try {
    DeleteFileW(systemPath(path).c_str());
  } catch (...) {
    // What cannot even be named stays.
  }
}

}  // namespace quiltor
