#pragma once

#include <string>

namespace quiltor {

// allUsersDataFolder() with another folder in the place of the system's own, which only an administrator can prepare.
std::string allUsersDataFolder(const std::string& systemFolder);

}  // namespace quiltor
