#include <gtest/gtest.h>

#include <filesystem>

#include "platform/data_folder.h"
#include "platform/environment_override.h"

namespace quiltor {
namespace {

TEST(WindowsDataFolder, IsTheSystemsWhenNoneIsChosen) {
  const EnvironmentOverride user("QUILTOR_USER_DIR", std::nullopt);
  const EnvironmentOverride allUsers("QUILTOR_ALLUSERS_DIR", std::nullopt);
  EXPECT_TRUE(std::filesystem::is_directory(std::filesystem::path(userDataFolder())));
  EXPECT_TRUE(userDataFolder().ends_with("\\AppData\\Roaming")) << userDataFolder();
  EXPECT_TRUE(allUsersDataFolder().ends_with("\\ProgramData")) << allUsersDataFolder();
}

TEST(WindowsDataFolder, DoesNotListenToOtherProgramsVariables) {
  const std::string before = userDataFolder();
  const EnvironmentOverride appData("APPDATA", "C:\\elsewhere");
  const EnvironmentOverride config("XDG_CONFIG_HOME", "C:\\elsewhere");
  EXPECT_EQ(userDataFolder(), before);
}

}  // namespace
}  // namespace quiltor
