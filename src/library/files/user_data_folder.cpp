#include "library/files/user_data_folder.h"

#include "platform/data_folder.h"

namespace quiltor {

std::string getUserDataFolder(bool allUsers) noexcept {
  try {
    return allUsers ? allUsersDataFolder() : userDataFolder();
  } catch (...) {
    return {};
  }
}

}  // namespace quiltor
