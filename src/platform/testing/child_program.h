#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace quiltor {

// A program in a process of its own, without a shell. Throws std::runtime_error when it cannot be started.
class ChildProgram {
 public:
  // What end() gives for a process that was killed.
  static constexpr int kKilled = -9;

  // What it prints, errors too, goes to a file, which is made or emptied.
  ChildProgram(const std::string& program, const std::vector<std::string>& words, const std::string& output);
  ~ChildProgram();  // kills it when it still runs
  ChildProgram(const ChildProgram&) = delete;
  ChildProgram& operator=(const ChildProgram&) = delete;

  [[nodiscard]] int64_t number() const;
  void kill();
  // Waits for its end. Its exit status, or kKilled.
  int end();

 private:
  struct System;
  std::unique_ptr<System> system_;
};

// The running program's own file.
[[nodiscard]] std::string ownProgram();

}  // namespace quiltor
