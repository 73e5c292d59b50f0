#include "standalone/cli/progress_bar.h"

#include <gtest/gtest.h>

#include <sstream>

namespace quiltor::standalone {
namespace {

class ProgressBarTest : public testing::Test {
 protected:
  std::ostringstream out_, err_;
};

TEST_F(ProgressBarTest, showsHowFarItIsAndWhatComesNext) {
  const Console console{out_, err_, true};
  ProgressBar bar(console);
  bar.show(1, 3, "bricks.pat");
  EXPECT_EQ(err_.str(), "\r\x1b[K[##########....................] 1/3 bricks.pat");
}

TEST_F(ProgressBarTest, leavesNothingBehind) {
  const Console console{out_, err_, true};
  { ProgressBar(console).show(1, 3, "bricks.pat"); }
  EXPECT_TRUE(err_.str().ends_with("bricks.pat\r\x1b[K"));
}

TEST_F(ProgressBarTest, complainsAboveTheBar) {
  const Console console{out_, err_, true};
  ProgressBar bar(console);
  bar.show(0, 1, "a");
  err_.str("");
  bar.complain("broken");
  EXPECT_EQ(err_.str(), "\r\x1b[Kbroken\n[..............................] 0/1 a");
}

TEST_F(ProgressBarTest, isSilentWhereNobodyWatches) {
  const Console console{out_, err_};
  ProgressBar bar(console);
  bar.show(1, 3, "bricks.pat");
  EXPECT_EQ(err_.str(), "");
  bar.complain("broken");
  EXPECT_EQ(err_.str(), "broken\n");
}

}  // namespace
}  // namespace quiltor::standalone
