#include <windows.h>

#include <algorithm>
#include <atomic>

#include "platform/testing/import_hook_windows.h"
#include "platform/testing/small_disk.h"

namespace quiltor {
namespace {

std::atomic<int64_t> limit = 0;

BOOL WINAPI writeWithinLimit(HANDLE file, LPCVOID bytes, DWORD count, LPDWORD done, LPOVERLAPPED overlapped) {
  static const auto real = systemFunction<decltype(&WriteFile)>("WriteFile");
  LARGE_INTEGER position{};
  if (GetFileType(file) == FILE_TYPE_DISK && SetFilePointerEx(file, {}, &position, FILE_CURRENT)) {
    const int64_t room = std::max<int64_t>(limit - position.QuadPart, 0);
    if (count > 0 && room == 0) {
      if (done) *done = 0;
      SetLastError(ERROR_DISK_FULL);
      return FALSE;
    }
    count = static_cast<DWORD>(std::min<int64_t>(count, room));
  }
  return real(file, bytes, count, done, overlapped);
}

}  // namespace

// The system limits no file's size, so the function that the C library writes with is replaced.
struct SmallDisk::Limit {
  ImportHook hook{"WriteFile", reinterpret_cast<void*>(&writeWithinLimit)};
};

SmallDisk::SmallDisk(int64_t mostBytes) {
  limit = mostBytes;
  limit_ = std::make_unique<Limit>();
}

SmallDisk::~SmallDisk() = default;

}  // namespace quiltor
