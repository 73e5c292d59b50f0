#include <gtest/gtest.h>

#include <array>
#include <functional>
#include <vector>

#include <hwy/targets.h>
#include "render/kernels/blend_modes.h"
#include "render/kernels/composite.h"

namespace quiltor {
namespace {

// Calls work from a stack that is so many bytes deeper. Sizes that are 16 bytes apart reach every place that a system
// allows which promises no more than that.
template <size_t kBytes>
void callDeeper(const std::function<void()>& work) {
  volatile char room[kBytes];
  room[0] = 1;
  work();
  room[kBytes - 1] = room[0];
}

// A compiler that takes the stack for aligned to a whole vector crashes here where the system promises less.
TEST(StackAlignment, IsNotTakenForGrantedByAnyInstructionSet) {
  constexpr size_t kPixels = 16;
  const std::vector<float> channels(4 * kPixels, 0.5f);
  std::vector<float> row(4 * kPixels), first;
  const auto drawEveryMode = [&] {
    for (int32_t mode = 0; mode < static_cast<int32_t>(BlendMode::Count); ++mode) {
      PixelRun run{};
      unpackRun(channels.data(), kPixels, run);
      compositeRun(run, channels.data(), ChannelType::Float, {.mode = mode, .opacity = 0.5}, kPixels, row.data());
    }
  };
  const std::array<void (*)(const std::function<void()>&), 5> depths = {callDeeper<16>, callDeeper<32>, callDeeper<48>,
                                                                        callDeeper<64>, callDeeper<80>};
  for (int64_t sets = hwy::SupportedTargets() & (HWY_SSE4 | HWY_AVX2 | HWY_AVX3); sets != 0; sets &= sets - 1) {
    hwy::SetSupportedTargetsForTest(sets & -sets);
    for (const auto callAtDepth : depths) {
      callAtDepth(drawEveryMode);
      if (first.empty()) first = row;
      EXPECT_EQ(row, first);
    }
  }
  hwy::SetSupportedTargetsForTest(0);
}

}  // namespace
}  // namespace quiltor
