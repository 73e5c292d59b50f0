#include "standalone/cli/number_order.h"

#include <gtest/gtest.h>

namespace quiltor::standalone {
namespace {

TEST(NumberOrder, countsNumbersByTheirValues) {
  EXPECT_TRUE(comesBefore("Wood_09.png", "Wood_10.png"));
  EXPECT_TRUE(comesBefore("Wood_99.png", "Wood_100.png"));
  EXPECT_FALSE(comesBefore("Wood_100.png", "Wood_99.png"));
  EXPECT_TRUE(comesBefore("a9/b100", "a10/b2"));
  EXPECT_TRUE(comesBefore("0", "123456789012345678901234567890"));
}

TEST(NumberOrder, isThatOfTheBytesOtherwise) {
  EXPECT_TRUE(comesBefore("a", "b"));
  EXPECT_TRUE(comesBefore("a", "a1"));
  EXPECT_FALSE(comesBefore("a", "a"));
  EXPECT_TRUE(comesBefore("z", "\xC3\xAB"));
}

TEST(NumberOrder, tellsEvenLeadingZerosApart) {
  EXPECT_TRUE(comesBefore("a01", "a1"));
  EXPECT_FALSE(comesBefore("a1", "a01"));
}

}  // namespace
}  // namespace quiltor::standalone
