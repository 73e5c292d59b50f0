#include "library/files/file_exists.h"

#include "platform/file.h"

namespace quiltor {

bool fileExists(const std::string& path) noexcept {
  std::FILE* file = openFile(path, "r");
  if (!file) return false;
  std::fclose(file);
  return true;
}

}  // namespace quiltor
