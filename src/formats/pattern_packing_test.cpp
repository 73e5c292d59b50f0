#include <gtest/gtest.h>

#include "formats/test_pattern_reading.h"

namespace quiltor {
namespace {

constexpr TestRectangle kFourByTwo = {.top = 0, .left = 0, .bottom = 2, .right = 4};

class PatternPacking : public PatternFileTest {
 protected:
  // The grey values of a pattern of two rows of four whose only plane has this data.
  Bytes decode(const Bytes& data, uint8_t compression = 1) {
    read(TestPattern{.mode = 1, .rectangle = kFourByTwo, .planes = {{.compression = compression, .data = data}}});
    Bytes values;
    for (size_t i = 0; i < pixels().size(); i += 4) values.push_back(pixels()[i]);
    return values;
  }
};

TEST_F(PatternPacking, LiteralsAndRepeatsMakeRows) {
  EXPECT_EQ(decode({0, 5, 0, 2, 3, 1, 2, 3, 4, 253, 9}), (Bytes{1, 2, 3, 4, 9, 9, 9, 9}));
}

TEST_F(PatternPacking, TheLongestRepeatHas128Bytes) {
  read(TestPattern{.mode = 1,
                   .rectangle = {.bottom = 1, .right = 130},
                   .planes = {{.compression = 1, .data = Bytes{0, 5, 129, 6, 1, 7, 8}}}});
  ASSERT_EQ(pixels().size(), 520u);
  EXPECT_EQ(pixels()[127 * 4], 6);
  EXPECT_EQ(pixels()[128 * 4], 7);
  EXPECT_EQ(pixels()[129 * 4], 8);
}

TEST_F(PatternPacking, TheLongestLiteralHas128Bytes) {
  Bytes data = {0, 131, 127};
  for (uint8_t i = 0; i < 128; ++i) data.push_back(i);
  data.insert(data.end(), {255, 200});
  read(TestPattern{
      .mode = 1, .rectangle = {.bottom = 1, .right = 130}, .planes = {{.compression = 1, .data = std::move(data)}}});
  ASSERT_EQ(pixels().size(), 520u);
  EXPECT_EQ(pixels()[127 * 4], 127);
  EXPECT_EQ(pixels()[129 * 4], 200);
}

TEST_F(PatternPacking, Minus128DoesNothing) {
  EXPECT_EQ(decode({0, 3, 0, 4, 128, 253, 5, 128, 128, 253, 6}), (Bytes{5, 5, 5, 5, 6, 6, 6, 6}));
}

TEST_F(PatternPacking, AnyCompressionOtherThanZeroIsRunLengths) {
  EXPECT_EQ(decode({0, 2, 0, 2, 253, 5, 253, 6}, 255), (Bytes{5, 5, 5, 5, 6, 6, 6, 6}));
}

TEST_F(PatternPacking, OutputRunsStraightOnFromRowToRow) {
  EXPECT_EQ(decode({0, 2, 0, 2, 255, 5, 251, 6}), (Bytes{5, 5, 6, 6, 6, 6, 6, 6}));
}

TEST_F(PatternPacking, ARunMayUseMoreThanItsRowHas) {
  EXPECT_EQ(decode({0, 1, 0, 2, 3, 1, 2, 3, 4, 253, 9}), (Bytes{1, 2, 3, 4, 9, 9, 9, 9}));
}

TEST_F(PatternPacking, RowsThatEndEarlyLeaveTheRestAtZero) {
  EXPECT_EQ(decode({0, 2, 0, 0, 253, 9}), (Bytes{9, 9, 9, 9, 0, 0, 0, 0}));
}

TEST_F(PatternPacking, SixteenBitsHaveARowCountForEachByteOfAColumn) {
  read(TestPattern{.mode = 1,
                   .rectangle = kTwoPixels,
                   .planes = {{.depth = 16,
                               .compression = 1,
                               .data = Bytes{0, 2, 0, 2, 0, 2, 0, 2,  //
                                             0, 8, 0, 1, 0, 9, 0, 2}}}});
  EXPECT_EQ(pixels(), (Bytes{8, 8, 8, 255, 9, 9, 9, 255}));
}

TEST_F(PatternPacking, ARepeatBeyondThePictureFailsThePattern) {
  decode({0, 2, 0, 2, 253, 5, 252, 6});
  EXPECT_EQ(result_, 0);
  EXPECT_TRUE(patterns_.empty());
}

TEST_F(PatternPacking, ALiteralBeyondThePictureFailsThePattern) {
  decode({0, 2, 0, 6, 253, 5, 4, 6, 7, 8, 9, 10});
  EXPECT_TRUE(patterns_.empty());
}

TEST_F(PatternPacking, APictureThatItsDataCannotFillFailsThePattern) {
  TestPattern promise = greyPattern(u"promise");
  promise.rectangle = {.bottom = 1, .right = 100000};
  promise.planes = {{.compression = 1, .data = Bytes{0, 0}}};
  read(TestPatternFile{.patterns = {promise, rgbPattern(u"after")}});
  EXPECT_EQ(names(), (std::vector<std::string>{"after"}));
}

}  // namespace
}  // namespace quiltor
