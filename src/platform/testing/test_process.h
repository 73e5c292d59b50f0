#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace quiltor {

// Work that a test has a process of its own do. An object of the program's, outside all functions:
//   const ProcessWork kWait("wait", [](const std::vector<std::string>& words) { ... return 0; });
class ProcessWork {
 public:
  // Gives the process's exit status.
  using Function = int (*)(const std::vector<std::string>& words);

  ProcessWork(const char* name, Function work);
  [[nodiscard]] const char* name() const { return name_; }

 private:
  const char* name_;
};

// This program once more, which does the work with the words and nothing else. Not while other threads read the
// environment. Throws std::runtime_error when it cannot be started.
class TestProcess {
 public:
  // What end() gives for a process that was killed.
  static constexpr int kKilled = -9;

  explicit TestProcess(const ProcessWork& work, const std::vector<std::string>& words = {});
  ~TestProcess();  // kills it when it still runs
  TestProcess(const TestProcess&) = delete;
  TestProcess& operator=(const TestProcess&) = delete;

  [[nodiscard]] int64_t number() const;
  void kill();
  // Waits for its end. Its exit status, or kKilled.
  int end();

 private:
  struct System;
  std::unique_ptr<System> system_;
};

}  // namespace quiltor
