// Frames of several instances at once are the pictures that they are one at a time.
#include <memory>
#include <thread>
#include <vector>

#include "tests/render/random_case.h"
#include "tests/render/render_test.h"

namespace quiltor::render_tests {
namespace {

using standalone::Instance;
using standalone::RenderResult;

class ThreadsRender : public RenderTest {};

TEST_F(ThreadsRender, DrawsSeveralFramesAtOnceAsOneAtATime) {
  constexpr size_t kInstances = 6;
  constexpr int kRounds = 8;
  std::vector<RenderCase> frames;
  std::vector<std::unique_ptr<Instance>> instances;
  std::vector<std::vector<unsigned char>> alone;
  for (uint32_t number = 0; frames.size() < kInstances; ++number) {
    RenderCase frame = randomCase(number);
    const bool fromFile = frames.size() % 2 == 0;
    if ((frame.source == PatternSource::Layer) == fromFile || frame.input.width() < 20) continue;
    frame.smart = frame.smart || frames.size() % 3 == 0;
    frame.downsampleX = frame.downsampleY = {1, 1};  // shared by all instances of a host
    frame.transform = {.positionX = 3, .scaleX = 150, .rotation = 10};
    frames.push_back(std::move(frame));
  }
  for (RenderCase& frame : frames) {
    setSurroundings(frame);
    instances.push_back(std::make_unique<Instance>(effect));
    if (isFile(frame.source)) {
      pick(*instances.back(), writePattern(frame));
    } else {
      ASSERT_TRUE(instances.back()->setUp().succeeded());
    }
    setParameters(*instances.back(), frame);
    const RenderResult result = renderOf(*instances.back(), frame);
    ASSERT_TRUE(result.output.has_value());
    alone.push_back(result.output->packed());
  }

  // Two threads for each instance: hosts render several frames of one as well.
  std::vector<int> right(2 * kInstances);
  {
    std::vector<std::jthread> threads;
    for (size_t t = 0; t < right.size(); ++t) {
      threads.emplace_back([&, t] {
        const size_t i = t % kInstances;
        for (int round = 0; round < kRounds; ++round) {
          const RenderResult result = renderOf(*instances[i], frames[i]);
          right[t] += result.output && result.output->packed() == alone[i] ? 1 : 0;
        }
      });
    }
  }
  EXPECT_EQ(right, std::vector<int>(2 * kInstances, kRounds));
}

}  // namespace
}  // namespace quiltor::render_tests
