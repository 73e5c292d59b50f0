// The host's threads: those that iterate rows, and those that render frames side by side.
#include <atomic>
#include <memory>
#include <string>
#include <thread>
#include <vector>

#include "standalone/validate/stage.h"

namespace quiltor::standalone {
namespace {

void iteratesOnAnyNumber(CheckRun& run) {
  forEveryKind(run, [&](Stage& stage, const FrameKind& kind) {
    Instance instance(stage.effect);
    if (!run.requireSuccess(instance.setUp(), "sequence setup")) return;
    const World layer = testPicture(kind.format, 23, 37);
    std::optional<World> first;
    for (const int threads : {1, 2, 7, 16}) {
      run.trial(kind.name + ", the host iterates on " + std::to_string(threads) + " threads");
      stage.host.options().iterateThreads = threads;
      auto picture = renderFrame(stage, instance, kind, {.input = &layer});
      if (!first) {
        first = std::move(picture);
      } else if (picture) {
        run.require(alike(first, picture), "the frame depends on the host's threads");
      }
    }
  });
}

// Frames of two instances on four threads, compared with what one thread renders.
void renderSideBySide(CheckRun& run, Stage& stage, const FrameKind& kind) {
  constexpr int kThreads = 4, kFrames = 12;
  Instance instances[] = {Instance(stage.effect), Instance(stage.effect)};
  for (Instance& instance : instances) run.requireSuccess(instance.setUp(), "sequence setup");
  run.trial(kind.name + ", on " + std::to_string(kThreads) + " threads");
  const World layer = testPicture(kind.format, 31, 17);
  const auto expected = renderFrame(stage, instances[0], kind, {.input = &layer});
  std::atomic<int> failed = 0, different = 0;
  std::vector<std::thread> threads;
  for (int thread = 0; thread < kThreads; ++thread) {
    threads.emplace_back([&, thread] {
      for (int i = 0; i < kFrames; ++i) {
        Instance& instance = instances[(thread + i) % 2];
        const Frame frame{.input = &layer};
        const RenderResult result = kind.smart ? instance.renderSmart(frame) : instance.render(frame);
        if (result.code != PF_Err_NONE) ++failed;
        if (!alike(expected, result.output)) ++different;
      }
    });
  }
  for (std::thread& thread : threads) thread.join();
  run.require(failed == 0, std::to_string(failed) + " frames failed");
  run.require(different == 0, std::to_string(different) + " frames differ from what one thread renders");
  run.takeFindings(stage.host.findings());
}

void rendersSideBySide(CheckRun& run) {
  bool any = false;
  forEveryKind(run, [&](Stage& stage, const FrameKind& kind) {
    if (!(stage.effect.outFlags2() & PF_OutFlag2_AE13_5_THREADSAFE)) return;
    any = true;
    renderSideBySide(run, stage, kind);
  });
  if (!any) run.notApplicable("the effect does not declare that its frames may render side by side");
}

}  // namespace

std::vector<Check> threadChecks() {
  return {
      {"iterate-threads", "A frame does not depend on how many threads the host iterates on.", iteratesOnAnyNumber},
      {"parallel-frames", "Frames may be rendered side by side.", rendersSideBySide},
  };
}

}  // namespace quiltor::standalone
