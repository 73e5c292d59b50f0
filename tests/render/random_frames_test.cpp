#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <string>

#include "tests/render/random_case.h"
#include "tests/render/render_test.h"

namespace quiltor::render_tests {
namespace {

constexpr uint32_t kFramesPerTest = 400;
constexpr int kTests = 10;

// Draws frames by the module and by the plain formulas; every number is a frame of its own.
class RandomFrames : public RenderTest, public testing::WithParamInterface<int> {};

TEST_P(RandomFrames, RenderAsThePlainFormulasDo) {
  const uint32_t first = static_cast<uint32_t>(GetParam()) * kFramesPerTest;
  int64_t pixels = 0;
  int differing = 0;
  double worstBytes = 0, worstDeep = 0, worstFloat = 0;
  for (uint32_t number = first; number < first + kFramesPerTest; ++number) {
    RenderCase frame = randomCase(number);
    const Comparison result = drawAndCompare(frame);
    pixels += result.pixels;
    double& worst = frame.input.format() == standalone::WorldFormat::Argb8    ? worstBytes
                    : frame.input.format() == standalone::WorldFormat::Argb16 ? worstDeep
                                                                              : worstFloat;
    worst = std::max(worst, result.worst);
    if (result.firstBeyond.empty()) continue;
    ADD_FAILURE() << describe(frame) << "\n  " << result.firstBeyond;
    ASSERT_LT(++differing, 20) << "too many frames differ to go on";
  }
  std::printf("%u frames, %lld pixels; farthest apart: %g steps of 255, %g steps of 32768, %g in float\n",
              kFramesPerTest, static_cast<long long>(pixels), worstBytes, worstDeep, worstFloat);
}

INSTANTIATE_TEST_SUITE_P(Render, RandomFrames, testing::Range(0, kTests));

}  // namespace
}  // namespace quiltor::render_tests
