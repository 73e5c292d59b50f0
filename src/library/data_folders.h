#pragma once

#include <filesystem>
#include <fstream>
#include <string>

#include "platform/environment_override.h"
#include "platform/scratch_folder.h"

namespace quiltor {

// For tests: data folders of all users and of the user that are empty but for their folder "Quiltor".
class DataFolders {
 public:
  DataFolders() {
    for (const char* folder : {"all/Quiltor", "user/Quiltor"})
      std::filesystem::create_directories(scratch_.path(folder));
  }

  std::string all(const std::string& name) const { return scratch_.path("all/Quiltor/" + name); }
  std::string user(const std::string& name) const { return scratch_.path("user/Quiltor/" + name); }
  // Anywhere beside them.
  std::string path(const std::string& name) const { return scratch_.path(name); }

 private:
  ScratchFolder scratch_;
  EnvironmentOverride all_{"QUILTOR_ALLUSERS_DIR", scratch_.path("all")};
  EnvironmentOverride user_{"QUILTOR_USER_DIR", scratch_.path("user")};
};

inline void writeText(const std::string& path, const std::string& text) {
  std::ofstream(path, std::ios::binary) << text;
}

}  // namespace quiltor
