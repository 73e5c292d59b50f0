#include "platform/data_folder.h"

#include <gtest/gtest.h>

#include <string>

#include "platform/environment_override.h"

namespace quiltor {
namespace {

TEST(DataFolder, IsTheChosenOneWithoutASeparatorAtItsEnd) {
  const EnvironmentOverride user("QUILTOR_USER_DIR", "/mine//");
  const EnvironmentOverride allUsers("QUILTOR_ALLUSERS_DIR", "/shared/between/users/");
  EXPECT_EQ(userDataFolder(), "/mine");
  EXPECT_EQ(allUsersDataFolder(), "/shared/between/users");
}

TEST(DataFolder, IsTheSystemsWhereNoneIsChosen) {
  const EnvironmentOverride user("QUILTOR_USER_DIR", std::nullopt);
  const EnvironmentOverride allUsers("QUILTOR_ALLUSERS_DIR", std::nullopt);
  EXPECT_NE(userDataFolder(), "");
  EXPECT_NE(allUsersDataFolder(), "");
  EXPECT_NE(userDataFolder(), allUsersDataFolder());
}

}  // namespace
}  // namespace quiltor
