#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <cstring>
#include <system_error>
#include <thread>

#include "standalone/validate/child_process.h"

extern char** environ;

namespace quiltor::standalone {
namespace {

std::string signalName(int number) {
  const char* name = sigabbrev_np(number);
  return name ? std::string("SIG") + name : "signal " + std::to_string(number);
}

pid_t start(const std::filesystem::path& program, const std::vector<std::string>& arguments) {
  std::string name = program.native();
  std::vector<std::string> copies = arguments;
  std::vector<char*> argv{name.data()};
  for (std::string& copy : copies) argv.push_back(copy.data());
  argv.push_back(nullptr);

  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  for (const int stream : {STDOUT_FILENO, STDERR_FILENO}) {
    posix_spawn_file_actions_addopen(&actions, stream, "/dev/null", O_WRONLY, 0);
  }
  pid_t child = 0;
  const int error = posix_spawn(&child, name.c_str(), &actions, nullptr, argv.data(), environ);
  posix_spawn_file_actions_destroy(&actions);
  if (error != 0) throw std::system_error(error, std::generic_category(), "cannot run " + name);
  return child;
}

ProcessEnd endOf(int status) {
  if (WIFSIGNALED(status)) return {ProcessEnd::Kind::Killed, 0, signalName(WTERMSIG(status))};
  return {ProcessEnd::Kind::Exited, WEXITSTATUS(status), ""};
}

}  // namespace

ProcessEnd runProcess(const std::filesystem::path& program, const std::vector<std::string>& arguments,
                      std::chrono::milliseconds limit) {
  const pid_t child = start(program, arguments);
  const auto deadline = std::chrono::steady_clock::now() + limit;
  int status = 0;
  auto pause = std::chrono::microseconds(200);
  while (waitpid(child, &status, WNOHANG) != child) {
    if (std::chrono::steady_clock::now() >= deadline) {
      kill(child, SIGKILL);
      waitpid(child, &status, 0);
      return {ProcessEnd::Kind::TimedOut, 0, ""};
    }
    std::this_thread::sleep_for(pause);
    pause = std::min(pause * 2, std::chrono::microseconds(20000));
  }
  return endOf(status);
}

std::filesystem::path ownProgram() { return std::filesystem::read_symlink("/proc/self/exe"); }

}  // namespace quiltor::standalone
