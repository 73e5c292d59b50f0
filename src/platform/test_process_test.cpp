#include "platform/testing/test_process.h"

#include <gtest/gtest.h>

#include <fstream>
#include <stdexcept>

#include "base/utf8_path.h"
#include "platform/redirected_output.h"
#include "platform/scratch_folder.h"

namespace quiltor {
namespace {

// The words are paths.
const ProcessWork kMakeFiles("make files", [](const std::vector<std::string>& words) {
  for (const std::string& word : words) std::ofstream(pathFromUtf8(word)) << "x";
  return 7;
});

TEST(TestProcess, DoesItsWorkWithWordsOutsideAscii) {
  const ScratchFolder scratch;
  const std::vector<std::string> words = {scratch.path("M\u00FCster \u6A21"), scratch.path("\U0001F3A8 two  blanks")};
  const TestProcess process(kMakeFiles, words);
  EXPECT_EQ(process->end(), 7);
  for (const std::string& word : words) EXPECT_TRUE(std::filesystem::exists(pathFromUtf8(word))) << word;
}

TEST(ChildProgram, ThrowsWhenItCannotBeStarted) {
  const ScratchFolder scratch;
  EXPECT_THROW(ChildProgram(scratch.path("missing"), {}, kNullDevice), std::runtime_error);
  const std::vector<std::string> words = {"--gtest_list_tests"};
  EXPECT_THROW(ChildProgram(ownProgram(), words, scratch.path("missing/output")), std::runtime_error);
  EXPECT_EQ(ChildProgram(ownProgram(), words, scratch.path("output")).end(), 0);
}

}  // namespace
}  // namespace quiltor
