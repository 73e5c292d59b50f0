#include "bench/frames_in_turn.h"

#include <cstddef>

#include "bench/timing.h"

namespace quiltor::bench {

std::vector<FrameRunner::Milliseconds> drawInTurn(FrameRunner& runner, const std::vector<FrameVariant>& variants,
                                                  int frames) {
  std::vector<std::vector<double>> elapsed(variants.size()), processor(variants.size());
  for (int round = 0; round < frames; ++round) {
    for (std::size_t i = 0; i < variants.size(); ++i) {
      const FrameVariant& variant = variants[i];
      if (variant.saved) {
        runner.setUpSaved(variant.job, *variant.input, *variant.saved, kThreads);
      } else {
        runner.setUp(variant.job, *variant.input, *variant.pattern, kThreads);
      }
      runner.frame();
      const auto frame = runner.frame();
      elapsed[i].push_back(frame.elapsed);
      processor[i].push_back(frame.processor);
    }
  }
  std::vector<FrameRunner::Milliseconds> medians;
  for (std::size_t i = 0; i < variants.size(); ++i) medians.push_back({median(elapsed[i]), median(processor[i])});
  return medians;
}

}  // namespace quiltor::bench
