#include "platform/data_folder_posix.h"

#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>

#include "platform/data_folder.h"

namespace quiltor {
namespace {

// An empty variable counts as one that is not set.
std::string folderFromVariable(const char* name) {
  const char* value = std::getenv(name);
  std::string folder = value ? value : "";
  while (folder.size() > 1 && folder.back() == '/') folder.pop_back();
  return folder;
}

std::string folderInHome(const char* subfolder) {
  const std::string home = folderFromVariable("HOME");
  return home.empty() ? "" : home + subfolder;
}

bool isWritableFolder(const std::string& path) {
  struct stat status;
  return stat(path.c_str(), &status) == 0 && S_ISDIR(status.st_mode) && access(path.c_str(), W_OK | X_OK) == 0;
}

}  // namespace

std::string userDataFolder() {
  const std::string chosen = folderFromVariable("QUILTOR_USER_DIR");
  if (!chosen.empty()) return chosen;
  const std::string folder = folderFromVariable("XDG_CONFIG_HOME");
  return folder.empty() ? folderInHome("/.config") : folder;
}

std::string allUsersDataFolder(const std::string& systemFolder) {
  const std::string chosen = folderFromVariable("QUILTOR_ALLUSERS_DIR");
  if (!chosen.empty()) return chosen;
  // Only an administrator can share a library between users; without one the user's own data folder stands in.
  if (isWritableFolder(systemFolder + "/Quiltor")) return systemFolder;
  const std::string folder = folderFromVariable("XDG_DATA_HOME");
  return folder.empty() ? folderInHome("/.local/share") : folder;
}

std::string allUsersDataFolder() { return allUsersDataFolder("/var/lib"); }

}  // namespace quiltor
