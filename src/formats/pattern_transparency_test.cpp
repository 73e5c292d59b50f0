#include <gtest/gtest.h>

#include "formats/test_pattern_reading.h"

namespace quiltor {
namespace {

class PatternTransparency : public PatternFileTest {
 protected:
  // The alpha of the two pixels of the pattern, which must come out as one of two.
  Bytes alphaOf(const TestPattern& pattern) {
    read(TestPatternFile{.patterns = {pattern, greyPattern(u"next")}});
    if (patterns_.size() != 2 || patterns_[1]->name != "next" || patterns_[0]->pixels.size() != 8) return {};
    return {patterns_[0]->pixels[3], patterns_[0]->pixels[7]};
  }
  static TestPattern with(TestPattern pattern, const TestPlane& transparency) {
    pattern.transparency = transparency;
    return pattern;
  }
  const Bytes kOpaque = {255, 255};
};

TEST_F(PatternTransparency, StandsBehind22EmptyArraysAfterThreeColours) {
  EXPECT_EQ(alphaOf(with(rgbPattern(), {.samples = {0, 128}})), (Bytes{0, 128}));
}

TEST_F(PatternTransparency, StandsBehind24EmptyArraysAfterOneColour) {
  EXPECT_EQ(alphaOf(with(greyPattern(), {.samples = {1, 254}})), (Bytes{1, 254}));
}

TEST_F(PatternTransparency, IsFoundBehind22EmptyArraysAfterOneColour) {
  TestPattern pattern = with(greyPattern(), {.samples = {3, 4}});
  pattern.unusedArrays = 22;
  EXPECT_EQ(alphaOf(pattern), (Bytes{3, 4}));
}

TEST_F(PatternTransparency, IsNotLookedForBehind24EmptyArraysAfterThreeColours) {
  TestPattern pattern = with(rgbPattern(), {.samples = {3, 4}});
  pattern.unusedArrays = 24;
  EXPECT_EQ(alphaOf(pattern), kOpaque);
}

TEST_F(PatternTransparency, KeepsTheHighByteOf16Bits) {
  EXPECT_EQ(alphaOf(with(rgbPattern(), {.samples = {9, 255, 8, 255}, .depth = 16})), (Bytes{9, 8}));
}

TEST_F(PatternTransparency, MayBePacked) {
  EXPECT_EQ(alphaOf(with(greyPattern(), {.samples = {9, 8}, .compression = 1})), (Bytes{9, 8}));
}

TEST_F(PatternTransparency, OfAnotherDepthLeavesThePatternOpaque) {
  for (const uint16_t depth : {uint16_t{1}, uint16_t{32}, uint16_t{0}}) {
    EXPECT_EQ(alphaOf(with(rgbPattern(), {.samples = {9, 8}, .depth = depth})), kOpaque) << depth;
    EXPECT_EQ(alphaOf(with(greyPattern(), {.samples = {9, 8}, .depth = depth})), kOpaque) << depth;
  }
}

TEST_F(PatternTransparency, OfAnotherRectangleLeavesThePatternOpaque) {
  const TestRectangle others[] = {
      {.bottom = 1, .right = 1}, {.bottom = 1, .right = 2}, {.top = 1, .bottom = 3, .right = 1}, {}};
  for (const TestRectangle& other : others) {
    EXPECT_EQ(alphaOf(with(rgbPattern(), {.samples = {9, 8}, .rectangle = other})), kOpaque);
    EXPECT_EQ(alphaOf(with(greyPattern(), {.samples = {9, 8}, .rectangle = other})), kOpaque);
  }
}

TEST_F(PatternTransparency, ThatDecodesToTooLittleLeavesThePatternOpaque) {
  EXPECT_EQ(alphaOf(with(rgbPattern(), {.compression = 1, .data = Bytes{0, 2, 0, 0, 0, 9}})), kOpaque);
}

TEST_F(PatternTransparency, ThatDecodesToTooMuchLeavesThePatternOpaque) {
  EXPECT_EQ(alphaOf(with(greyPattern(), {.compression = 1, .data = Bytes{0, 2, 0, 2, 255, 9, 255, 8}})), kOpaque);
}

TEST_F(PatternTransparency, ThatTheFileCutsOffLeavesThePatternOpaque) {
  for (TestPattern pattern : {rgbPattern(), greyPattern()}) {
    pattern.transparency = TestPlane{.samples = {9, 8}};
    Bytes bytes = TestPatternFile{.patterns = {pattern}}.bytes();
    bytes.pop_back();
    read(bytes);
    ASSERT_EQ(pixels().size(), 8u);
    EXPECT_EQ(pixels()[3], 255);
    EXPECT_EQ(pixels()[7], 255);
  }
}

TEST_F(PatternTransparency, BeginsMoreThan119BytesBeforeTheEndOfTheList) {
  TestPattern pattern = with(rgbPattern(), {.samples = {3, 4}});
  // Rectangle, channel count, three planes of two pixels.
  const uint32_t colours = 16 + 4 + 3 * (31 + 2);
  pattern.listLength = colours + 119;
  read(pattern);
  ASSERT_EQ(pixels().size(), 8u);
  EXPECT_EQ(pixels()[3], 255);
  pattern.listLength = colours + 120;
  read(pattern);
  ASSERT_EQ(pixels().size(), 8u);
  EXPECT_EQ(pixels()[3], 3);
}

}  // namespace
}  // namespace quiltor
