#pragma once

#ifdef _WIN32
#include <io.h>
#else
#include <filesystem>
#endif

namespace quiltor {

// For tests: how many files this process has open.
inline int openFiles() {
#ifdef _WIN32
  constexpr int kMostFiles = 2048;
  int count = 0;
  for (int descriptor = 0; descriptor < kMostFiles; ++descriptor) count += _get_osfhandle(descriptor) != -1;
  return count;
#else
  // The listing is itself an open file.
  int count = -1;
  for ([[maybe_unused]] const auto& entry : std::filesystem::directory_iterator("/proc/self/fd")) ++count;
  return count;
#endif
}

}  // namespace quiltor
