#include "platform/process.h"

#include <gtest/gtest.h>

#include "platform/testing/test_process.h"

namespace quiltor {
namespace {

const ProcessWork kEndAtOnce("end at once", [](const std::vector<std::string>&) { return 0; });

TEST(ProcessRuns, IsTrueForThisProcess) { EXPECT_TRUE(processRuns(processNumber())); }

TEST(ProcessRuns, IsFalseForOneThatEndedAndForNoNumberAtAll) {
  TestProcess process(kEndAtOnce);
  EXPECT_TRUE(processRuns(process->number()));
  EXPECT_EQ(process->end(), 0);
  EXPECT_FALSE(processRuns(process->number()));
  EXPECT_FALSE(processRuns(0));
  EXPECT_FALSE(processRuns(-1));
  EXPECT_FALSE(processRuns(int64_t{1} << 40));
}

TEST(KeepModuleLoaded, HasNothingToDoInAProgram) { EXPECT_TRUE(keepModuleLoaded()); }

}  // namespace
}  // namespace quiltor
