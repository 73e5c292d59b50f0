#include "platform/file.h"

#include <sys/stat.h>

#include <cerrno>

namespace quiltor {

std::FILE* openFile(const std::string& path, const char* mode) {
  std::FILE* file = std::fopen(path.c_str(), mode);
  struct stat status;
  // Only POSIX opens a folder for reading, and then fails at the first byte.
  if (file && fstat(fileno(file), &status) == 0 && S_ISDIR(status.st_mode)) {
    std::fclose(file);
    errno = EISDIR;
    return nullptr;
  }
  return file;
}

int64_t fileSize(std::FILE* file) {
  struct stat status;
  return fstat(fileno(file), &status) == 0 ? int64_t{status.st_size} : 0;
}

}  // namespace quiltor
