#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <filesystem>
#include <stdexcept>

#include "platform/environment_override.h"
#include "platform/testing/test_process_work.h"

extern char** environ;

namespace quiltor {

struct TestProcess::System {
  pid_t process = -1;
  bool ended = false;
};

TestProcess::TestProcess(const ProcessWork& work, const std::vector<std::string>& words)
    : system_(std::make_unique<System>()) {
  const EnvironmentOverride told(kWorkVariable, workText(work, words));
  std::string program = std::filesystem::read_symlink("/proc/self/exe").string();
  char* argv[] = {program.data(), nullptr};
  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_addopen(&actions, STDOUT_FILENO, "/dev/null", O_WRONLY, 0);
  const int error = posix_spawn(&system_->process, program.c_str(), &actions, nullptr, argv, environ);
  posix_spawn_file_actions_destroy(&actions);
  if (error != 0) throw std::runtime_error("cannot start a process to " + std::string(work.name()));
}

TestProcess::~TestProcess() {
  if (system_->ended) return;
  kill();
  end();
}

int64_t TestProcess::number() const { return system_->process; }
void TestProcess::kill() { ::kill(system_->process, SIGKILL); }

int TestProcess::end() {
  int status = 0;
  if (waitpid(system_->process, &status, 0) != system_->process) throw std::runtime_error("the process was lost");
  system_->ended = true;
  if (WIFEXITED(status)) return WEXITSTATUS(status);
  return WTERMSIG(status) == SIGKILL ? kKilled : -WTERMSIG(status);
}

}  // namespace quiltor
