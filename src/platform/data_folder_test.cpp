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
  std::string users, ofAll;
  {
    const EnvironmentOverride user("QUILTOR_USER_DIR", std::nullopt);
    const EnvironmentOverride allUsers("QUILTOR_ALLUSERS_DIR", std::nullopt);
    users = userDataFolder();
    ofAll = allUsersDataFolder();
  }
  EXPECT_NE(users, "");
  EXPECT_NE(ofAll, "");
  EXPECT_NE(users, ofAll);
  const EnvironmentOverride user("QUILTOR_USER_DIR", "");
  const EnvironmentOverride allUsers("QUILTOR_ALLUSERS_DIR", "");
  EXPECT_EQ(userDataFolder(), users) << "an empty variable counts as unset";
  EXPECT_EQ(allUsersDataFolder(), ofAll) << "an empty variable counts as unset";
}

}  // namespace
}  // namespace quiltor
