#include <windows.h>

#include <atomic>
#include <stdexcept>
#include <tuple>

#include "platform/testing/file_reads.h"
#include "platform/testing/import_hook_windows.h"
#include "platform/wide_text_windows.h"

namespace quiltor {
namespace {

using FileNumber = std::tuple<DWORD, DWORD, DWORD>;

FileNumber numberOf(HANDLE file) {
  BY_HANDLE_FILE_INFORMATION about{};
  GetFileInformationByHandle(file, &about);
  return {about.dwVolumeSerialNumber, about.nFileIndexHigh, about.nFileIndexLow};
}

// One file at a time is watched.
FileNumber watched;
std::atomic<bool> isWatching = false;
std::atomic<bool> wasRead = false;

BOOL WINAPI readAndTell(HANDLE file, LPVOID bytes, DWORD count, LPDWORD done, LPOVERLAPPED overlapped) {
  const DWORD errorBefore = GetLastError();
  if (GetFileType(file) == FILE_TYPE_DISK && numberOf(file) == watched) wasRead = true;
  SetLastError(errorBefore);
  static const auto real = systemFunction<decltype(&ReadFile)>("ReadFile");
  return real(file, bytes, count, done, overlapped);
}

}  // namespace

// The system tells of no reads, so the function that the C library reads with is replaced.
struct FileReads::Watch {
  ImportHook hook{"ReadFile", reinterpret_cast<void*>(&readAndTell)};
};

FileReads::FileReads(const std::string& path) {
  if (isWatching.exchange(true)) throw std::runtime_error(path + ": another file is watched already");
  const HANDLE file =
      CreateFileW(systemPath(path).c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                  nullptr, OPEN_EXISTING, 0, nullptr);
  if (file == INVALID_HANDLE_VALUE) {
    isWatching = false;
    throw std::runtime_error(path + ": cannot be watched");
  }
  watched = numberOf(file);
  CloseHandle(file);
  wasRead = false;
  watch_ = std::make_unique<Watch>();
}

FileReads::~FileReads() { isWatching = false; }

bool FileReads::any() { return wasRead.exchange(false); }

}  // namespace quiltor
