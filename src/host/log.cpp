#include "host/log.h"

#include <cstdio>

#include "library/files/user_data_folder.h"
#include "platform/file.h"

namespace quiltor {
namespace {

// Null when there is no folder for the log; it is not made for the log's sake.
std::FILE* openLog(const char* mode) {
  const std::string folder = getUserDataFolder(false);
  return folder.empty() ? nullptr : openFile(folder + "/Quiltor/log.txt", mode);
}

}  // namespace

void clearLog() noexcept {
  try {
    if (std::FILE* file = openLog("w")) std::fclose(file);
  } catch (...) {
    // A log that cannot be written never stops the effect.
  }
}

void writeLog(std::string&& message) noexcept {
  try {
    std::string line;
    line.swap(message);
    line += '\n';
    std::FILE* file = openLog("a");
    if (!file) return;
    // Without a buffer a line is one write at the end of the file, so the lines of several threads do not mix.
    std::setvbuf(file, nullptr, _IONBF, 0);
    std::fwrite(line.data(), 1, line.size(), file);
    std::fclose(file);
  } catch (...) {
    message.clear();
  }
}

}  // namespace quiltor
