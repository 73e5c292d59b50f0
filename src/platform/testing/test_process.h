#pragma once

#include <memory>
#include <string>
#include <vector>

#include "platform/testing/child_program.h"

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
// environment.
class TestProcess {
 public:
  explicit TestProcess(const ProcessWork& work, const std::vector<std::string>& words = {});

  ChildProgram* operator->() const { return program_.get(); }

 private:
  std::unique_ptr<ChildProgram> program_;
};

}  // namespace quiltor
