#pragma once

#include <string>

namespace quiltor {

// The file whose lock is the mutex of that name: in one fixed folder, so that the processes of a user exclude one
// another whatever their environment variables say.
std::string lockFilePath(const std::string& name);

}  // namespace quiltor
