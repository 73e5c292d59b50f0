#include "library/files/user_data_folder.h"

#include <gtest/gtest.h>

#include "platform/environment_override.h"

namespace quiltor {
namespace {

TEST(GetUserDataFolder, TellsTheUsersFolderFromTheOneOfAllUsersAndAppendsNothing) {
  const EnvironmentOverride user("QUILTOR_USER_DIR", "/home/someone/settings");
  const EnvironmentOverride allUsers("QUILTOR_ALLUSERS_DIR", "/shared/data");
  EXPECT_EQ(getUserDataFolder(false), "/home/someone/settings");
  EXPECT_EQ(getUserDataFolder(true), "/shared/data");
}

}  // namespace
}  // namespace quiltor
