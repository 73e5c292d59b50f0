#include <gtest/gtest.h>
#include <windows.h>

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

TEST(WindowsDataFolder, AnEmptyVariableCountsAsUnset) {
  const EnvironmentOverride user("QUILTOR_USER_DIR", std::nullopt);
  const EnvironmentOverride allUsers("QUILTOR_ALLUSERS_DIR", std::nullopt);
  const std::string users = userDataFolder(), ofAll = allUsersDataFolder();
  // The C library takes away a variable that is given an empty value.
  for (const wchar_t* name : {L"QUILTOR_USER_DIR", L"QUILTOR_ALLUSERS_DIR"}) {
    ASSERT_TRUE(SetEnvironmentVariableW(name, L""));
    EXPECT_EQ(GetEnvironmentVariableW(name, nullptr, 0), 1u) << "room for the end of an empty text";
  }
  EXPECT_EQ(userDataFolder(), users);
  EXPECT_EQ(allUsersDataFolder(), ofAll);
}

TEST(WindowsDataFolder, DoesNotListenToOtherProgramsVariables) {
  const std::string before = userDataFolder();
  const EnvironmentOverride appData("APPDATA", "C:\\elsewhere");
  const EnvironmentOverride config("XDG_CONFIG_HOME", "C:\\elsewhere");
  EXPECT_EQ(userDataFolder(), before);
}

}  // namespace
}  // namespace quiltor
