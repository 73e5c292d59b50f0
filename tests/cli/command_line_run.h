#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <sstream>
#include <string>
#include <vector>

#include "platform/environment_override.h"
#include "platform/folder.h"
#include "platform/scratch_folder.h"
#include "standalone/cli/command_line.h"

namespace quiltor::standalone {

// Command lines typed in a folder of their own, with data folders of their own.
class CommandLineTest : public testing::Test {
 protected:
  struct Outcome {
    int status = 0;
    std::string out, err;
  };

  static Outcome run(const std::vector<std::string>& words) {
    std::vector<const char*> argv{"quiltor"};
    for (const std::string& word : words) argv.push_back(word.c_str());
    std::ostringstream out, err;
    const int status = runCommandLine(static_cast<int>(argv.size()), argv.data(), out, err);
    return {status, out.str(), err.str()};
  }

  // Text that names files, with the same separator everywhere.
  static std::string withSlashes(std::string text) {
    if (kPathSeparator == '\\') std::ranges::replace(text, '\\', '/');
    return text;
  }

  // The same with the built module named.
  static Outcome runModule(std::vector<std::string> words) {
    words.insert(words.begin() + 1, {"--plugin", QUILTOR_MODULE_PATH});
    return run(words);
  }

  ScratchFolder folder;
  EnvironmentOverride userData{"QUILTOR_USER_DIR", folder.path("user")};
  EnvironmentOverride allUsersData{"QUILTOR_ALLUSERS_DIR", folder.path("all")};
};

}  // namespace quiltor::standalone
