// Renders of several processes wait for one another.
#include <gtest/gtest.h>
#include <signal.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <functional>
#include <string>
#include <thread>
#include <vector>

#include "platform/environment_override.h"
#include "platform/scratch_folder.h"
#include "tests/render/common_turns_posix.h"

namespace quiltor::render_tests {
namespace {

using namespace std::chrono_literals;

class RenderingProcesses : public testing::Test {
 protected:
  ~RenderingProcesses() override {
    for (const pid_t process : running_) {
      kill(process, SIGKILL);
      waitpid(process, nullptr, 0);
    }
  }

  pid_t start(const std::string& howMany) {
    std::string program = RENDER_MANY_PATH, file = turnsFile, frames = howMany;
    char* argv[] = {program.data(), file.data(), frames.data(), nullptr};
    pid_t process = -1;
    EXPECT_EQ(posix_spawn(&process, program.c_str(), nullptr, nullptr, argv, environ), 0);
    running_.push_back(process);
    return process;
  }
  // The process's exit status, or minus the signal that ended it.
  int end(pid_t process) {
    int status = 0;
    EXPECT_EQ(waitpid(process, &status, 0), process);
    std::erase(running_, process);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
  }
  static bool waitFor(const std::function<bool()>& condition, std::chrono::seconds patience) {
    const auto end = std::chrono::steady_clock::now() + patience;
    while (!condition()) {
      if (std::chrono::steady_clock::now() > end) return false;
      std::this_thread::sleep_for(1ms);
    }
    return true;
  }

  ScratchFolder folder;
  EnvironmentOverride userData{"XDG_CONFIG_HOME", folder.path("user")};
  EnvironmentOverride allUsersData{"QUILTOR_ALLUSERS_DIR", folder.path("all")};
  const std::string turnsFile = folder.path("turns");
  CommonTurns turns{turnsFile};

 private:
  std::vector<pid_t> running_;
};

TEST_F(RenderingProcesses, NeverOverlap) {
  const pid_t first = start("200"), second = start("200");
  EXPECT_EQ(end(first), 0);
  EXPECT_EQ(end(second), 0);
  EXPECT_EQ(turns->finished, 400);
  EXPECT_EQ(turns->meetings, 0);
  // Otherwise one was done before the other began, and nothing was tried.
  EXPECT_GT(turns->handovers, 2);
}

TEST_F(RenderingProcesses, GoOnWithinASecondWhenOneIsKilledInTheMiddle) {
  const pid_t hanging = start("hang");
  ASSERT_TRUE(waitFor([&] { return turns->inside == 1; }, 30s)) << "the first process never rendered";
  const pid_t waiting = start("200");
  ASSERT_TRUE(waitFor([&] { return turns->arrivals == 2; }, 30s)) << "the other process never started";
  std::this_thread::sleep_for(100ms);
  EXPECT_EQ(turns->finished, 0) << "a process rendered in the middle of another's render";

  const auto killed = std::chrono::steady_clock::now();
  kill(hanging, SIGKILL);
  ASSERT_TRUE(waitFor([&] { return turns->finished >= 1; }, 30s)) << "the other process waits for ever";
  EXPECT_LT(std::chrono::steady_clock::now() - killed, 1s);
  EXPECT_EQ(end(hanging), -SIGKILL);
  EXPECT_EQ(end(waiting), 0);
  EXPECT_EQ(turns->finished, 200);
}

}  // namespace
}  // namespace quiltor::render_tests
