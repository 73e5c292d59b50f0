#include "standalone/cli/near_miss.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace quiltor::standalone {
namespace {

const std::vector<std::string> kModes{"Normal", "Multiply", "Soft Light", "Hard Light", "Phoenix"};

TEST(NearMiss, findsASlipOfTheFinger) { EXPECT_EQ(suggestion("multipyl", kModes), "; did you mean \"Multiply\"?"); }

TEST(NearMiss, findsTheNearestOfSeveral) {
  EXPECT_EQ(suggestion("hardlight", kModes), "; did you mean \"Hard Light\"?");
}

TEST(NearMiss, completesABeginning) { EXPECT_EQ(suggestion("soft", kModes), "; did you mean \"Soft Light\"?"); }

TEST(NearMiss, staysSilentWhenNothingIsNear) {
  EXPECT_EQ(suggestion("brick", kModes), "");
  EXPECT_EQ(suggestion("", kModes), "");
}

TEST(NearMiss, comparesNamesWithoutRegardToCase) {
  EXPECT_TRUE(sameName("Soft Light", "sOFT lIGHT"));
  EXPECT_FALSE(sameName("Soft Light", "Soft Ligh"));
}

}  // namespace
}  // namespace quiltor::standalone
