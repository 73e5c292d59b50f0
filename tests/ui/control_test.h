#pragma once

#include <algorithm>
#include <fstream>
#include <functional>
#include <string>
#include <vector>

#include "description/language/param_index.h"
#include "platform/testing/cursor_place.h"
#include "standalone/host/services/script_runner.h"
#include "tests/support/instance_test.h"

namespace quiltor::testing_support {

// An instance in a panel whose host runs no scripts but answers for them.
class ControlTest : public InstanceTest {
 protected:
  explicit ControlTest(A_AppID appId = kAppId_AfterEffects) : InstanceTest(appId) {
    std::filesystem::create_directories(allUsersFolder());
    host.options().runScript = [this](const std::string& script) {
      scripts.push_back(script);
      if (duringScript) duringScript();
      return outcome;
    };
  }
  void SetUp() override { ASSERT_EQ(instance.setUp().code, 0); }

  std::string allUsersFolder() const { return folder.path("all/Quiltor"); }
  std::string userList() const { return userFolder() + "/libpaths.txt"; }
  std::string sharedList() const { return allUsersFolder() + "/libpaths.txt"; }

  static void write(const std::string& path, const std::string& text) { std::ofstream(path, std::ios::binary) << text; }
  // A list of one library, a folder that is not there.
  void writeList(const std::string& path) const { write(path, "Mine**" + folder.path("library") + "\r\n"); }

  standalone::EventResult click() { return instance.clickedByUser(Param::txtsrc); }

  // A script as the module carries it, its placeholders filled as they are for a mouse in the corner and no selection.
  static std::string plainScript(const std::string& name) {
    std::string script = contentsOf(SCRIPTS_FOLDER "/common.jsx") + contentsOf(SCRIPTS_FOLDER "/" + name);
    fill(script, "#WIDTH", "800");
    fill(script, "#HEIGHT", "600");
    fill(script, "#X_POS", "0");
    fill(script, "#Y_POS", "0");
    for (const char* empty : {"#IMGPATH", "#v1", "#v2"}) fill(script, empty, "");
    return script;
  }
  static void fill(std::string& script, const std::string& placeholder, const std::string& value) {
    for (size_t at = script.find(placeholder); at != std::string::npos; at = script.find(placeholder, at)) {
      script.replace(at, placeholder.size(), value);
    }
  }

  const CursorPlace corner{0, 0};
  standalone::ScriptOutcome outcome;
  std::function<void()> duringScript;
  std::vector<std::string> scripts;
};

struct SuiteName {
  const char* name;
  int version;
};

// As the name of a test, which takes no blanks.
inline std::string testName(const testing::TestParamInfo<SuiteName>& test) {
  std::string name = test.param.name;
  std::ranges::replace(name, ' ', '_');
  return name;
}

}  // namespace quiltor::testing_support
