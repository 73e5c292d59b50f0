#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

#include "platform/environment_override.h"
#include "platform/scratch_folder.h"
#include "standalone/host/effect.h"
#include "standalone/host/effect_module.h"
#include "standalone/host/host.h"
#include "standalone/host/instance.h"

namespace quiltor::testing_support {

// A test with the module in a strict host, and data folders of its own. At its end the effect is shut down and must
// have given the host nothing to complain about.
class EffectTest : public testing::Test {
 protected:
  explicit EffectTest(const char* modulePath = QUILTOR_MODULE_PATH) : module(modulePath) {
    std::filesystem::create_directories(userFolder());
  }

  void TearDown() override {
    host.faults().failNever();
    effect.shutDown();
    EXPECT_EQ(host.findings().text(), "");
    EXPECT_EQ(host.suiteBalance(), 0);
    EXPECT_EQ(host.liveHandleCount(), 0u);
  }

  std::string userFolder() const { return folder.path("user/Quiltor"); }
  std::string logPath() const { return userFolder() + "/log.txt"; }

  static std::string contentsOf(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
  }

  ScratchFolder folder;
  EnvironmentOverride userData{"QUILTOR_USER_DIR", folder.path("user")};
  EnvironmentOverride allUsersData{"QUILTOR_ALLUSERS_DIR", folder.path("all")};
  standalone::Host host;
  standalone::EffectModule module;
  standalone::Effect effect{host, module};
};

// The same, in the video editor.
class VideoEditorTest : public EffectTest {
 protected:
  VideoEditorTest() { host.options().appId = kAppId_PremierePro; }
};

}  // namespace quiltor::testing_support
