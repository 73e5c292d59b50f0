#include <gtest/gtest.h>

#include "platform/process.h"

namespace quiltor {
namespace {

TEST(LinuxProcess, RunsThoughItIsSomebodyElses) { EXPECT_TRUE(processRuns(1)); }

}  // namespace
}  // namespace quiltor
