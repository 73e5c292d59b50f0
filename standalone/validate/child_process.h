#pragma once

#include <chrono>
#include <filesystem>
#include <string>
#include <vector>

namespace quiltor::standalone {

// How a program ended.
struct ProcessEnd {
  enum class Kind {
    Exited,    // by itself, with the status
    Killed,    // by the system, for the reason
    TimedOut,  // by us, when its time was over
  };
  Kind kind = Kind::Exited;
  int status = 0;
  std::string reason;  // "SIGSEGV"
};

// Runs a program without a shell, its output thrown away, and waits for its end, for no longer than the limit. Throws
// std::runtime_error when it cannot be started.
[[nodiscard]] ProcessEnd runProcess(const std::filesystem::path& program, const std::vector<std::string>& arguments,
                                    std::chrono::milliseconds limit);

// The running program's own file.
[[nodiscard]] std::filesystem::path ownProgram();

}  // namespace quiltor::standalone
