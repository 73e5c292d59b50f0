#include "platform/data_folder_posix.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>

#include "platform/data_folder.h"
#include "platform/environment_override.h"
#include "platform/scratch_folder.h"

namespace quiltor {
namespace {

// The variables that the data folders depend on.
class LinuxDataFolder : public testing::Test {
 protected:
  ScratchFolder scratch_;
  EnvironmentOverride home_{"HOME", "/home/someone"};
  EnvironmentOverride config_{"XDG_CONFIG_HOME", std::nullopt};
  EnvironmentOverride data_{"XDG_DATA_HOME", std::nullopt};
  EnvironmentOverride allUsers_{"QUILTOR_ALLUSERS_DIR", std::nullopt};
  EnvironmentOverride user_{"QUILTOR_USER_DIR", std::nullopt};
};

TEST_F(LinuxDataFolder, OfTheUserIsTheConfigurationFolder) {
  const EnvironmentOverride config("XDG_CONFIG_HOME", "/elsewhere/config");
  EXPECT_EQ(userDataFolder(), "/elsewhere/config");
}

TEST_F(LinuxDataFolder, OfTheUserIsInTheHomeFolderWhenNoConfigurationFolderIsSet) {
  EXPECT_EQ(userDataFolder(), "/home/someone/.config");
}

TEST_F(LinuxDataFolder, AnEmptyVariableCountsAsUnset) {
  const EnvironmentOverride config("XDG_CONFIG_HOME", "");
  const EnvironmentOverride allUsers("QUILTOR_ALLUSERS_DIR", "");
  const EnvironmentOverride data("XDG_DATA_HOME", "");
  const EnvironmentOverride user("QUILTOR_USER_DIR", "");
  EXPECT_EQ(userDataFolder(), "/home/someone/.config");
  EXPECT_EQ(allUsersDataFolder(scratch_.path()), "/home/someone/.local/share");
}

TEST_F(LinuxDataFolder, OfTheUserIsEmptyWithoutAHomeFolder) {
  const EnvironmentOverride home("HOME", std::nullopt);
  EXPECT_EQ(userDataFolder(), "");
}

TEST_F(LinuxDataFolder, OfAllUsersIsTheChosenOneAboveTheSystems) {
  std::filesystem::create_directory(scratch_.path("Quiltor"));
  const EnvironmentOverride data("XDG_DATA_HOME", "/elsewhere/data");
  const EnvironmentOverride allUsers("QUILTOR_ALLUSERS_DIR", "/shared/between/users");
  EXPECT_EQ(allUsersDataFolder(scratch_.path()), "/shared/between/users");
}

TEST_F(LinuxDataFolder, OfAllUsersIsTheSystemsWhenAnAdministratorPreparedIt) {
  std::filesystem::create_directory(scratch_.path("Quiltor"));
  const EnvironmentOverride data("XDG_DATA_HOME", "/elsewhere/data");
  EXPECT_EQ(allUsersDataFolder(scratch_.path()), scratch_.path());
}

TEST_F(LinuxDataFolder, OfAllUsersIsTheUsersOwnWhenTheSystemsIsMissing) {
  EXPECT_EQ(allUsersDataFolder(scratch_.path()), "/home/someone/.local/share");
  const EnvironmentOverride data("XDG_DATA_HOME", "/elsewhere/data");
  EXPECT_EQ(allUsersDataFolder(scratch_.path()), "/elsewhere/data");
}

TEST_F(LinuxDataFolder, OfAllUsersIsTheUsersOwnWhenTheSystemsIsAFile) {
  std::ofstream(scratch_.path("Quiltor")) << "not a folder";
  std::filesystem::permissions(scratch_.path("Quiltor"), std::filesystem::perms::owner_all);
  EXPECT_EQ(allUsersDataFolder(scratch_.path()), "/home/someone/.local/share");
}

TEST_F(LinuxDataFolder, OfAllUsersIsTheUsersOwnWhenTheSystemsCannotBeWritten) {
  std::filesystem::create_directory(scratch_.path("Quiltor"));
  std::filesystem::permissions(scratch_.path("Quiltor"), std::filesystem::perms::owner_read);
  // An administrator may write whatever the permissions say.
  const std::string expected = geteuid() == 0 ? scratch_.path() : "/home/someone/.local/share";
  EXPECT_EQ(allUsersDataFolder(scratch_.path()), expected);
}

TEST_F(LinuxDataFolder, HasNoSeparatorAtItsEnd) {
  const EnvironmentOverride config("XDG_CONFIG_HOME", "/elsewhere/config//");
  EXPECT_EQ(userDataFolder(), "/elsewhere/config");
}

}  // namespace
}  // namespace quiltor
