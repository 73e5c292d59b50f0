#include "standalone/cli/shrink.h"

#include <gtest/gtest.h>

namespace quiltor::standalone {
namespace {

TEST(Shrink, keepsAPictureAtFullResolution) {
  World picture(WorldFormat::Argb8, 3, 2);
  picture.fill({1, 0, 1, 1});
  EXPECT_EQ(shrink(picture, 1).packed(), picture.packed());
}

TEST(Shrink, takesTheMeanOfEachBlock) {
  World picture(WorldFormat::ArgbFloat, 2, 2);
  picture.fill({0, 0, 0, 1});
  picture.set(0, 0, {1, 0.5, 0, 1});
  const World small = shrink(picture, 2);
  ASSERT_EQ(small.width(), 1);
  ASSERT_EQ(small.height(), 1);
  EXPECT_FLOAT_EQ(static_cast<float>(small.at(0, 0).r), 0.25F);
  EXPECT_FLOAT_EQ(static_cast<float>(small.at(0, 0).g), 0.125F);
}

TEST(Shrink, keepsSmallerBlocksAtTheRightAndTheFoot) {
  World picture(WorldFormat::ArgbFloat, 5, 3);
  picture.fill({0, 0, 0, 1});
  picture.set(4, 2, {1, 1, 1, 1});
  const World small = shrink(picture, 2);
  ASSERT_EQ(small.width(), 3);
  ASSERT_EQ(small.height(), 2);
  EXPECT_EQ(small.at(2, 1).r, 1);
}

TEST(Shrink, letsClearPixelsLendNoColour) {
  World picture(WorldFormat::ArgbFloat, 2, 1);
  picture.set(0, 0, {0.5, 0.25, 1, 1});
  picture.set(1, 0, {1, 1, 1, 0});
  const Rgba mean = shrink(picture, 2).at(0, 0);
  EXPECT_EQ(mean.r, 0.5);
  EXPECT_EQ(mean.g, 0.25);
  EXPECT_EQ(mean.a, 0.5);
}

}  // namespace
}  // namespace quiltor::standalone
