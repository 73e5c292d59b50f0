#include "platform/file.h"

#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <utility>

#include "platform/system_path_posix.h"

namespace quiltor {

std::string systemPath(const std::string& path) {
  std::string result = path;
  std::replace(result.begin(), result.end(), '\\', '/');
  return result;
}

std::FILE* openFile(const std::string& path, const char* mode) noexcept {
  std::FILE* file = nullptr;
  try {
    file = std::fopen(systemPath(path).c_str(), mode);
  } catch (...) {
    errno = ENOMEM;
  }
  struct stat status;
  // Only POSIX opens a folder for reading, and then fails at the first byte.
  if (file && fstat(fileno(file), &status) == 0 && S_ISDIR(status.st_mode)) {
    std::fclose(file);
    errno = EISDIR;
    return nullptr;
  }
  return file;
}

bool appendLine(const std::string& path, std::string&& line) noexcept {
  try {
    const std::string bytes = std::move(line) + '\n';
    std::FILE* const file = openFile(path, "a");
    if (!file) return false;
    // Without a buffer it is one write at the end of the file.
    std::setvbuf(file, nullptr, _IONBF, 0);
    const bool written = std::fwrite(bytes.data(), 1, bytes.size(), file) == bytes.size();
    std::fclose(file);
    return written;
  } catch (...) {
    return false;
  }
}

int64_t fileSize(std::FILE* file) {
  struct stat status;
  return fstat(fileno(file), &status) == 0 ? int64_t{status.st_size} : 0;
}

bool replaceFile(const std::string& from, const std::string& to) noexcept {
  try {
    return std::rename(systemPath(from).c_str(), systemPath(to).c_str()) == 0;
  } catch (...) {
    return false;
  }
}

std::error_code replaceFile(const std::filesystem::path& from, const std::filesystem::path& to) noexcept {
  std::error_code error;
  std::filesystem::rename(from, to, error);
  return error;
}

void removeFile(const std::string& path) noexcept {
  try {
    unlink(systemPath(path).c_str());
  } catch (...) {
    // What cannot even be named stays.
  }
}

}  // namespace quiltor
