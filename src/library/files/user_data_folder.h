#pragma once

#include <string>

namespace quiltor {

// The application-data folder of the current user or the one of all users, without a separator at its end; callers
// append "/Quiltor/..." themselves. Empty when it cannot be found. Never throws, creates nothing.
std::string getUserDataFolder(bool allUsers) noexcept;

}  // namespace quiltor
