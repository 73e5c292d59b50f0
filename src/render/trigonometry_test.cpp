#include "render/trigonometry.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <numbers>

namespace quiltor {
namespace {

// The values to 20 digits, from tables; the angles are the doubles next to multiples of a quarter turn, where
// libraries that reduce them by a short pi go wrong.
TEST(Trigonometry, IsRightToTheLastBitWhereShortReductionsAreNot) {
  constexpr double kPi = std::numbers::pi;
  EXPECT_EQ(exactSine(kPi), 1.2246467991473531772e-16);
  EXPECT_EQ(exactCosine(kPi / 2), 6.1232339957367658860e-17);
  EXPECT_EQ(exactSine(20 * kPi), -2.4492935982947063545e-15);
  EXPECT_EQ(exactCosine(kPi), -1);
  EXPECT_EQ(exactCosine(0), 1);
  EXPECT_EQ(exactSine(0), 0);
}

TEST(Trigonometry, AgreesWithTheSystemsToAUnitInTheLastPlace) {
  for (int tenths = -7200; tenths <= 7200; ++tenths) {
    const double angle = tenths * std::numbers::pi / 1800;
    // x87 code, which some systems have, is off by more near the zeros.
    EXPECT_NEAR(exactCosine(angle), std::cos(angle), 2.3e-16) << tenths;
    EXPECT_NEAR(exactSine(angle), std::sin(angle), 2.3e-16) << tenths;
  }
}

TEST(Trigonometry, OfNoNumberIsNone) {
  for (const double angle : {std::numeric_limits<double>::infinity(), std::numeric_limits<double>::quiet_NaN()}) {
    EXPECT_TRUE(std::isnan(exactCosine(angle)));
    EXPECT_TRUE(std::isnan(exactSine(angle)));
  }
}

}  // namespace
}  // namespace quiltor
