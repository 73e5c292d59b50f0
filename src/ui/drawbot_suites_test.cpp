#include "ui/drawbot_suites.h"

#include <gtest/gtest.h>

namespace quiltor {
namespace {

TEST(DrawbotSuites, RefuseAMissingTarget) {
  PF_OutData out{};
  EXPECT_EQ(DrawbotSuites::acquire(nullptr, out, nullptr), 516);
  EXPECT_STREQ(out.return_msg, "NULL suite pointer passed to AEFX_AcquireDrawbotSuites");
  EXPECT_EQ(out.out_flags, 0x100);
}

TEST(DrawbotSuites, TellTheUserWhenTheHostHasNone) {
  PF_OutData out{};
  std::optional<DrawbotSuites> suites;
  EXPECT_EQ(DrawbotSuites::acquire(nullptr, out, &suites), 516);
  EXPECT_STREQ(out.return_msg, "Not able to acquire AEFX Suite.");
}

}  // namespace
}  // namespace quiltor
