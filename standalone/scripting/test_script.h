#pragma once

#include <gmock/gmock.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <memory>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include "platform/environment_override.h"
#include "platform/scratch_folder.h"
#include "standalone/scripting/dialogs.h"

namespace quiltor::standalone {

// For tests: scripts in a host of their own, with data folders and a home folder of their own. In scripts FOLDER stands
// for the path of `folder`.
class ScriptTest : public testing::Test {
 protected:
  // Runs a script while the steps are done in the place of a person.
  ScriptOutcome runOutcome(const std::string& script, const std::string& steps = "") {
    said.str("");
    dialogs = std::make_unique<Dialogs>(DialogOptions{.steps = filled(steps), .out = &said});
    return dialogs->run(filled(script));
  }

  // The same for scripts in which nothing is wrong: gives the result.
  std::string run(const std::string& script, const std::string& steps = "") {
    const ScriptOutcome outcome = runOutcome(script, steps);
    EXPECT_EQ(outcome.errorText, "");
    EXPECT_THAT(dialogs->complaints(), testing::IsEmpty());
    return outcome.result;
  }

  // What is wrong with a script or steps, which is one thing.
  std::string complaint(const std::string& script, const std::string& steps = "") {
    runOutcome(script, steps);
    const std::vector<std::string> complaints = dialogs->complaints();
    EXPECT_EQ(complaints.size(), 1U);
    return complaints.empty() ? "" : complaints.front();
  }

  std::string filled(std::string text) const {
    const std::string mark = "FOLDER";
    for (std::size_t at = text.find(mark); at != std::string::npos; at = text.find(mark, at)) {
      text.replace(at, mark.size(), folder.path());
    }
    return text;
  }

  void write(const std::string& name, const std::string& bytes) const {
    std::filesystem::create_directories(std::filesystem::path(folder.path(name)).parent_path());
    std::ofstream(folder.path(name), std::ios::binary) << bytes;
  }

  [[nodiscard]] std::string read(const std::string& name) const {
    std::ifstream file(folder.path(name), std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
  }

  ScratchFolder folder;
  EnvironmentOverride home{"HOME", folder.path()};
  EnvironmentOverride userData{"XDG_CONFIG_HOME", folder.path("user")};
  EnvironmentOverride allUsersData{"QUILTOR_ALLUSERS_DIR", folder.path("all")};
  std::ostringstream said;
  std::unique_ptr<Dialogs> dialogs;
};

}  // namespace quiltor::standalone
