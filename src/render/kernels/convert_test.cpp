#include "render/kernels/convert.h"

#include <gtest/gtest.h>

#include <cstring>
#include <random>
#include <vector>

#include "render/kernels/streaming.h"

namespace quiltor {
namespace {

class StreamedRow : public testing::TestWithParam<WorldFormat> {};

constexpr size_t kPixels = 40;

std::vector<float> randomRow() {
  std::mt19937 random(9);
  std::uniform_real_distribution<float> channel(-0.2f, 1.2f);
  std::vector<float> row(4 * kPixels);
  for (float& value : row) value = channel(random);
  return row;
}

TEST_P(StreamedRow, HoldsTheSameBytesWhereverItBegins) {
  const std::vector<float> result = randomRow();
  const size_t pixelBytes = bytesPerPixel(GetParam()), bytes = 16 * kPixels;
  for (size_t start = 0; start < 80; ++start) {
    for (const size_t count : {size_t{0}, size_t{1}, size_t{3}, size_t{33}}) {
      std::vector<uint8_t> plain(bytes + 80, 77), streamed = plain;
      writeWorldRow(GetParam(), result.data(), 1, count, plain.data() + start, false);
      writeWorldRow(GetParam(), result.data(), 1, count, streamed.data() + start, true);
      finishStreaming();
      EXPECT_EQ(plain, streamed) << count << " pixels from byte " << start;
      EXPECT_EQ(streamed[start + count * pixelBytes], 77);

      std::vector<uint8_t> copy(bytes + 80, 77), streamedCopy = copy;
      readWorldRow(GetParam(), plain.data() + start, count, copy.data() + 4 * (start / 4), false);
      readWorldRow(GetParam(), plain.data() + start, count, streamedCopy.data() + 4 * (start / 4), true);
      finishStreaming();
      EXPECT_EQ(copy, streamedCopy) << count << " pixels to byte " << 4 * (start / 4);
    }
  }
}

INSTANTIATE_TEST_SUITE_P(EveryFormat, StreamedRow,
                         testing::Values(WorldFormat::Argb8, WorldFormat::Argb16, WorldFormat::ArgbFloat,
                                         WorldFormat::Bgra8, WorldFormat::BgraFloat));

}  // namespace
}  // namespace quiltor
