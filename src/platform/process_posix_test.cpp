#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include "platform/process.h"

namespace quiltor {
namespace {

TEST(ProcessRuns, IsTrueForThisProcessAndTheFirst) {
  EXPECT_TRUE(processRuns(processNumber()));
  EXPECT_TRUE(processRuns(1));
}

TEST(ProcessRuns, IsFalseForOneThatEndedAndForNoNumberAtAll) {
  const pid_t child = fork();
  if (child == 0) _exit(0);
  ASSERT_EQ(waitpid(child, nullptr, 0), child);
  EXPECT_FALSE(processRuns(child));
  EXPECT_FALSE(processRuns(0));
  EXPECT_FALSE(processRuns(-1));
  EXPECT_FALSE(processRuns(int64_t{1} << 40));
}

TEST(KeepModuleLoaded, HasNothingToDoInAProgram) { EXPECT_TRUE(keepModuleLoaded()); }

}  // namespace
}  // namespace quiltor
