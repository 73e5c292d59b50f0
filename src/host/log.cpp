#include "host/log.h"

#include <cstdio>
#include <utility>

#include "library/files/user_data_folder.h"
#include "platform/file.h"

namespace quiltor {
namespace {

// Empty when there is no folder for the log; it is not made for the log's sake.
std::string logPath() {
  const std::string folder = getUserDataFolder(false);
  return folder.empty() ? "" : folder + "/Quiltor/log.txt";
}

}  // namespace

void clearLog() noexcept {
  try {
    if (std::FILE* file = openFile(logPath(), "w")) std::fclose(file);
  } catch (...) {
    // A log that cannot be written never stops the effect.
  }
}

void writeLog(std::string&& message) noexcept {
  try {
    appendLine(logPath(), std::move(message));
  } catch (...) {
    // A log that cannot be written never stops the effect.
  }
  message.clear();
}

}  // namespace quiltor
