#include <windows.h>

#include <stdexcept>

#include "platform/testing/shared_record.h"
#include "platform/wide_text_windows.h"

namespace quiltor {

SharedBytes::SharedBytes(const std::string& file, std::size_t count) : count_(count) {
  constexpr DWORD kAnyoneToo = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
  const HANDLE opened = CreateFileW(systemPath(file).c_str(), GENERIC_READ | GENERIC_WRITE, kAnyoneToo, nullptr,
                                    OPEN_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
  if (opened != INVALID_HANDLE_VALUE) {
    const HANDLE mapping = CreateFileMappingW(opened, nullptr, PAGE_READWRITE, 0, static_cast<DWORD>(count_), nullptr);
    if (mapping) {
      memory_ = MapViewOfFile(mapping, FILE_MAP_ALL_ACCESS, 0, 0, count_);
      CloseHandle(mapping);
    }
    CloseHandle(opened);
  }
  if (!memory_) throw std::runtime_error("cannot share " + file);
}

SharedBytes::~SharedBytes() { UnmapViewOfFile(memory_); }

}  // namespace quiltor
