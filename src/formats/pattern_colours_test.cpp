#include <gtest/gtest.h>

#include "formats/test_pattern_reading.h"

namespace quiltor {
namespace {

using PatternColours = PatternFileTest;

TEST_F(PatternColours, GreyBecomesThreeEqualOpaqueColours) {
  read(TestPattern{.mode = 1, .rectangle = kTwoPixels, .planes = {{.samples = {7, 250}}}});
  EXPECT_EQ(result_, 0);
  EXPECT_EQ(pixels(), (Bytes{7, 7, 7, 255, 250, 250, 250, 255}));
}

TEST_F(PatternColours, AnIndexIsLookedUpInTheColourTable) {
  Bytes table(768);
  table[3 * 2] = 50, table[3 * 2 + 1] = 60, table[3 * 2 + 2] = 70;
  table[765] = 80, table[766] = 90, table[767] = 100;
  read(TestPattern{
      .mode = 2, .rectangle = kTwoPixels, .planes = {{.samples = {255, 2}}}, .colourTable = std::move(table)});
  EXPECT_EQ(pixels(), (Bytes{80, 90, 100, 255, 50, 60, 70, 255}));
}

TEST_F(PatternColours, RgbKeepsItsPlanesInOrder) {
  read(rgbPattern());
  EXPECT_EQ(pixels(), (Bytes{1, 2, 3, 255, 4, 5, 6, 255}));
}

TEST_F(PatternColours, SixteenBitsKeepTheHighByte) {
  read(TestPattern{.mode = 3,
                   .rectangle = kTwoPixels,
                   .planes = {{.samples = {1, 255, 4, 0}, .depth = 16},
                              {.samples = {2, 128, 5, 9}, .depth = 16},
                              {.samples = {3, 127, 6, 1}, .depth = 16}}});
  EXPECT_EQ(pixels(), (Bytes{1, 2, 3, 255, 4, 5, 6, 255}));
}

TEST_F(PatternColours, CmykGivesItsFirstThreePlanesOpaque) {
  TestPattern cmyk = rgbPattern();
  cmyk.mode = 4;
  cmyk.planes.push_back({.samples = {99, 98}});
  cmyk.transparency = TestPlane{.samples = {11, 12}};
  read(cmyk);
  EXPECT_EQ(pixels(), (Bytes{1, 2, 3, 255, 4, 5, 6, 255}));
}

TEST_F(PatternColours, TheSizeIsTheExtentOfTheRectangle) {
  read(TestPattern{.mode = 1,
                   .rectangle = {.top = static_cast<uint32_t>(-1), .left = 10, .bottom = 1, .right = 13},
                   .planes = {{.samples = {1, 2, 3, 4, 5, 6}}}});
  ASSERT_EQ(patterns_.size(), 1u);
  EXPECT_EQ(patterns_[0]->width, 3u);
  EXPECT_EQ(patterns_[0]->height, 2u);
  EXPECT_EQ(patterns_[0]->pixels.size(), 24u);
}

TEST_F(PatternColours, AnEmptyRectangleGivesAPatternWithoutPixels) {
  read(TestPattern{.mode = 1, .rectangle = {}, .planes = {{}}});
  ASSERT_EQ(patterns_.size(), 1u);
  EXPECT_TRUE(patterns_[0]->pixels.empty());
}

TEST_F(PatternColours, APlaneSmallerThanThePatternLeavesTheRestAtZero) {
  TestPattern pattern = rgbPattern();
  pattern.planes[1] = {.samples = {77}, .rectangle = TestRectangle{.bottom = 1, .right = 1}};
  read(pattern);
  EXPECT_EQ(pixels(), (Bytes{1, 77, 3, 255, 4, 0, 6, 255}));
}

TEST_F(PatternColours, APlaneLargerThanThePatternFailsIt) {
  TestPattern pattern = rgbPattern();
  pattern.planes[1] = {.samples = {77, 78, 79}, .rectangle = TestRectangle{.bottom = 3, .right = 1}};
  read(pattern);
  EXPECT_EQ(result_, 0);
  EXPECT_TRUE(patterns_.empty());
}

struct Variant {
  uint32_t mode;
  uint16_t depth;
  uint8_t compression;
  bool hasTransparency;
};

std::string nameOf(const testing::TestParamInfo<Variant>& info) {
  constexpr const char* kModes[] = {"", "Grey", "Indexed", "Rgb", "Cmyk"};
  const Variant& variant = info.param;
  return kModes[variant.mode] + std::to_string(variant.depth) + (variant.compression ? "Packed" : "Raw") +
         (variant.hasTransparency ? "WithTransparency" : "");
}

std::vector<Variant> allVariants() {
  std::vector<Variant> variants;
  for (const uint32_t mode : {1u, 2u, 3u, 4u}) {
    for (const uint16_t depth : {uint16_t{8}, uint16_t{16}}) {
      for (const uint8_t compression : {uint8_t{0}, uint8_t{1}}) {
        for (const bool hasTransparency : {false, true})
          variants.push_back({mode, depth, compression, hasTransparency});
      }
    }
  }
  return variants;
}

class EveryKindOfPattern : public PatternFileTest, public testing::WithParamInterface<Variant> {
 protected:
  static constexpr TestRectangle kRectangle = {.top = 3, .left = 5, .bottom = 3 + 40, .right = 5 + 300};
  static constexpr size_t kCount = 40 * 300;

  // Runs of many lengths with literal stretches between them.
  static uint8_t value(size_t plane, size_t i) {
    const size_t row = i / 300;
    const size_t column = i % 300;
    return static_cast<uint8_t>(column < row * 7 ? 200 + plane : i * 31 + plane * 11);
  }
  static TestPlane plane(size_t which) {
    TestPlane plane = {.depth = GetParam().depth, .compression = GetParam().compression};
    for (size_t i = 0; i < kCount; ++i) {
      plane.samples.push_back(value(which, i));
      if (plane.depth == 16) plane.samples.push_back(static_cast<uint8_t>(i));
    }
    return plane;
  }
};

TEST_P(EveryKindOfPattern, ComesOutAsItWentIn) {
  const Variant variant = GetParam();
  TestPattern pattern = {.mode = variant.mode, .rectangle = kRectangle};
  const size_t planeCount = variant.mode == 4 ? 4 : variant.mode == 3 ? 3 : 1;
  for (size_t which = 0; which < planeCount; ++which) pattern.planes.push_back(plane(which));
  if (variant.mode == 2) pattern.colourTable = someBytes(768);
  if (variant.hasTransparency) pattern.transparency = plane(9);

  Bytes expected;
  for (size_t i = 0; i < kCount; ++i) {
    for (size_t channel = 0; channel < 3; ++channel) {
      uint8_t colour = value(planeCount == 1 ? 0 : channel, i);
      if (variant.mode == 2) colour = pattern.colourTable[colour * size_t{3} + channel];
      expected.push_back(colour);
    }
    // The fourth ink stands where the transparency is looked for.
    expected.push_back(variant.hasTransparency && variant.mode != 4 ? value(9, i) : 255);
  }

  const TestPattern after = greyPattern(u"after");
  read(TestPatternFile{.patterns = {pattern, after}});
  ASSERT_EQ(patterns_.size(), 2u);
  EXPECT_EQ(patterns_[0]->width, 300u);
  EXPECT_EQ(patterns_[0]->height, 40u);
  EXPECT_EQ(patterns_[0]->pixels, expected);
  EXPECT_EQ(patterns_[1]->name, "after");
}

INSTANTIATE_TEST_SUITE_P(All, EveryKindOfPattern, testing::ValuesIn(allVariants()), nameOf);

}  // namespace
}  // namespace quiltor
