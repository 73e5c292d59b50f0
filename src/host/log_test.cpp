#include "host/log.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sstream>
#include <string_view>
#include <thread>
#include <vector>

#include "platform/environment_override.h"
#include "platform/open_files.h"
#include "platform/scratch_folder.h"

namespace quiltor {
namespace {

using testing::Each;
using testing::ElementsAre;
using testing::SizeIs;

#ifdef _WIN32
constexpr std::string_view kLineEnd = "\r\n";
#else
constexpr std::string_view kLineEnd = "\n";
#endif

class Log : public testing::Test {
 protected:
  Log() { std::filesystem::create_directory(scratch_.path("Quiltor")); }

  std::string path() const { return scratch_.path("Quiltor/log.txt"); }

  std::string text() const {
    std::ostringstream text;
    text << std::ifstream(path(), std::ios::binary).rdbuf();
    return text.str();
  }

  // Every line, and that it ends as the system ends lines.
  std::vector<std::string> lines() const {
    std::vector<std::string> lines;
    std::string rest = text();
    for (size_t end = rest.find(kLineEnd); end != std::string::npos; end = rest.find(kLineEnd)) {
      lines.push_back(rest.substr(0, end));
      rest.erase(0, end + kLineEnd.size());
    }
    EXPECT_EQ(rest, "") << "the end of a line is missing";
    return lines;
  }

  ScratchFolder scratch_;
  EnvironmentOverride folder_{"QUILTOR_USER_DIR", scratch_.path()};
};

TEST_F(Log, IsEmptyAfterAStart) {
  clearLog();
  EXPECT_TRUE(std::filesystem::exists(path()));
  EXPECT_EQ(text(), "");
}

TEST_F(Log, HoldsTheMessagesOneALineAsTheyAre) {
  clearLog();
  writeLog("Exception in image loader 'a.png'");
  writeLog("");
  writeLog("Exception in pattern loader 'b.pat'");
  EXPECT_THAT(lines(), ElementsAre("Exception in image loader 'a.png'", "", "Exception in pattern loader 'b.pat'"));
}

TEST_F(Log, HoldsOnlyTheLinesOfTheSecondRunAfterTwoStarts) {
  clearLog();
  writeLog("first run");
  clearLog();
  writeLog("second run");
  EXPECT_THAT(lines(), ElementsAre("second run"));
}

TEST_F(Log, ConsumesTheMessage) {
  std::string message = "a message that is too long for the string's own room";
  writeLog(std::move(message));
  EXPECT_EQ(message, "");  // NOLINT(bugprone-use-after-move): the emptiness is what is promised
}

TEST_F(Log, ClosesTheFileAfterEachCall) {
  const int before = openFiles();
  clearLog();
  writeLog("line");
  EXPECT_EQ(openFiles(), before);
}

TEST_F(Log, IsSilentWhenItsFolderIsMissingAndDoesNotMakeIt) {
  std::filesystem::remove_all(scratch_.path("Quiltor"));
  testing::internal::CaptureStderr();
  clearLog();
  std::string message = "nobody reads this";
  writeLog(std::move(message));
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
  EXPECT_EQ(message, "");  // NOLINT(bugprone-use-after-move): the emptiness is what is promised
  EXPECT_FALSE(std::filesystem::exists(scratch_.path("Quiltor")));
}

TEST_F(Log, IsSilentWhenAFolderLiesInItsPlace) {
  std::filesystem::create_directory(path());
  clearLog();
  writeLog("nobody reads this");
  EXPECT_TRUE(std::filesystem::is_empty(path()));
}

TEST_F(Log, KeepsTheLinesOfThreadsWhole) {
  clearLog();
  constexpr int kThreads = 4;
  constexpr int kLines = 100;
  // Longer than a buffer of the C library.
  const std::string line(10000, 'x');
  std::vector<std::thread> threads;
  for (int i = 0; i < kThreads; ++i) {
    threads.emplace_back([&] {
      for (int turn = 0; turn < kLines; ++turn) writeLog(std::string(line));
    });
  }
  for (std::thread& thread : threads) thread.join();
  EXPECT_THAT(lines(), SizeIs(kThreads * kLines));
  EXPECT_THAT(lines(), Each(line));
}

}  // namespace
}  // namespace quiltor
