#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <filesystem>
#include <stdexcept>

#include "platform/testing/child_program.h"

extern char** environ;

namespace quiltor {

struct ChildProgram::System {
  pid_t process = -1;
  bool ended = false;
};

ChildProgram::ChildProgram(const std::string& program, const std::vector<std::string>& words, const std::string& output)
    : system_(std::make_unique<System>()) {
  std::string name = program;
  std::vector<std::string> copies = words;
  std::vector<char*> argv{name.data()};
  for (std::string& copy : copies) argv.push_back(copy.data());
  argv.push_back(nullptr);
  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_addopen(&actions, STDOUT_FILENO, output.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600);
  posix_spawn_file_actions_adddup2(&actions, STDOUT_FILENO, STDERR_FILENO);
  const int error = posix_spawn(&system_->process, name.c_str(), &actions, nullptr, argv.data(), environ);
  posix_spawn_file_actions_destroy(&actions);
  if (error != 0) throw std::runtime_error("cannot start " + program);
}

ChildProgram::~ChildProgram() {
  if (system_->ended) return;
  kill();
  waitpid(system_->process, nullptr, 0);
}

int64_t ChildProgram::number() const { return system_->process; }
void ChildProgram::kill() { ::kill(system_->process, SIGKILL); }

int ChildProgram::end() {
  int status = 0;
  if (waitpid(system_->process, &status, 0) != system_->process) throw std::runtime_error("the process was lost");
  system_->ended = true;
  return WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
}

std::string ownProgram() { return std::filesystem::read_symlink("/proc/self/exe").string(); }

}  // namespace quiltor
