#include "platform/testing/test_process.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <sstream>

#include "platform/environment_override.h"
#include "platform/redirected_output.h"

namespace quiltor {
namespace {

// Tells a process its work, in lines: the name and the words.
constexpr const char* kWorkVariable = "QUILTOR_TEST_WORK";

// Runs before the first test, and ends the process.
class WorkInsteadOfTests : public testing::Environment {
 public:
  WorkInsteadOfTests(ProcessWork::Function work, std::vector<std::string> words)
      : work_(work), words_(std::move(words)) {}
  void SetUp() override { std::_Exit(work_(words_)); }

 private:
  ProcessWork::Function work_;
  std::vector<std::string> words_;
};

}  // namespace

ProcessWork::ProcessWork(const char* name, Function work) : name_(name) {
  const std::optional<std::string> text = EnvironmentOverride::valueOf(kWorkVariable);
  if (!text) return;
  std::istringstream lines(*text);
  std::vector<std::string> words;
  for (std::string line; std::getline(lines, line);) words.push_back(line);
  if (words.empty() || words.front() != name) return;
  words.erase(words.begin());
  testing::AddGlobalTestEnvironment(new WorkInsteadOfTests(work, std::move(words)));
}

TestProcess::TestProcess(const ProcessWork& work, const std::vector<std::string>& words) {
  std::string text = work.name();
  for (const std::string& word : words) text += "\n" + word;
  const EnvironmentOverride told(kWorkVariable, text);
  program_ = std::make_unique<ChildProgram>(ownProgram(), std::vector<std::string>{}, kNullDevice);
}

}  // namespace quiltor
