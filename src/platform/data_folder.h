#pragma once

#include <string>

namespace quiltor {

// The application-data folder of the current user or the one that all users share, without a separator at the end.
// Empty when the system knows none. Nothing is created.
std::string userDataFolder();
std::string allUsersDataFolder();

}  // namespace quiltor
