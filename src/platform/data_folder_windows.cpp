#include <windows.h>
// After the header that it needs.
#include <shlobj.h>

#include <array>

#include "platform/data_folder.h"
#include "platform/wide_text_windows.h"

namespace quiltor {
namespace {

// An empty variable counts as one that is not set.
std::string folderFromVariable(const wchar_t* name) {
  std::string folder = environmentVariable(name);
  while (folder.size() > 1 && (folder.back() == '/' || folder.back() == '\\')) folder.pop_back();
  return folder;
}

std::string systemsFolder(int folder) {
  std::array<wchar_t, MAX_PATH> path{};
  if (SHGetFolderPathW(nullptr, folder, nullptr, SHGFP_TYPE_CURRENT, path.data()) != S_OK) return "";
  return utf8Text(path.data()).value_or("");
}

}  // namespace

std::string userDataFolder() {
  const std::string chosen = folderFromVariable(L"QUILTOR_USER_DIR");
  return chosen.empty() ? systemsFolder(CSIDL_APPDATA) : chosen;
}

std::string allUsersDataFolder() {
  const std::string chosen = folderFromVariable(L"QUILTOR_ALLUSERS_DIR");
  return chosen.empty() ? systemsFolder(CSIDL_COMMON_APPDATA) : chosen;
}

}  // namespace quiltor
