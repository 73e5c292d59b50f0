#include <benchmark/benchmark.h>

#include <cstdlib>
#include <functional>
#include <iostream>
#include <string>
#include <vector>

#include "hostapi/params.h"
#include "standalone/host/effect.h"
#include "standalone/host/effect_module.h"
#include "standalone/host/host.h"
#include "standalone/host/instance.h"

namespace quiltor::standalone {
namespace {

// Of a full-HD frame; the reported time per pixel is that of a whole frame, with everything that a host asks for.
constexpr int kWidth = 1920, kHeight = 1080;
constexpr double kPixels = double{kWidth} * kHeight;

// By their place in the registered parameters.
constexpr int kTileMode = 5, kBlendMode = 6, kOpacity = 7, kScale = 8, kRotation = 10, kBlur = 14;

World softPicture(WorldFormat format) {
  World world(format, kWidth, kHeight);
  for (int y = 0; y < kHeight; ++y) {
    for (int x = 0; x < kWidth; ++x) {
      world.set(x, y, {double(x) / kWidth, double(y) / kHeight, double(x ^ y) / 2048, double(x % 256) / 255});
    }
  }
  return world;
}

using Settings = std::function<void(Instance&)>;

void measureFrame(benchmark::State& state, Effect& effect, WorldFormat format, const Settings& settings) {
  const World input = softPicture(format);
  Instance instance(effect);
  if (!instance.setUp().succeeded()) return state.SkipWithError("the instance could not be set up");
  settings(instance);
  Frame frame;
  frame.input = &input;
  for (auto _ : state) {
    const RenderResult result = instance.renderSmart(frame);
    if (result.code != PF_Err_NONE) return state.SkipWithError("the frame could not be rendered");
  }
  state.counters["per_pixel"] =
      benchmark::Counter(kPixels, benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}

void add(const std::string& name, Effect& effect, WorldFormat format, const Settings& settings) {
  benchmark::RegisterBenchmark(
      name.c_str(),
      [&effect, format, settings](benchmark::State& state) { measureFrame(state, effect, format, settings); })
      ->Unit(benchmark::kMillisecond)
      ->UseRealTime();
}

void addAll(Effect& effect) {
  const auto standard = [](Instance&) {};
  add("depth/8", effect, WorldFormat::Argb8, standard);
  add("depth/16", effect, WorldFormat::Argb16, standard);
  add("depth/float", effect, WorldFormat::ArgbFloat, standard);

  const auto turned = [](Instance& instance) {
    instance.setNumber(kRotation, 30);
    instance.setNumber(kScale, 70);
  };
  add("turned", effect, WorldFormat::Argb8, turned);
  for (const int item : {1, 2, 3}) {
    add("tile/" + effect.parameters()[kTileMode].items()[static_cast<std::size_t>(item) - 1], effect,
        WorldFormat::Argb8, [item](Instance& instance) { instance.setChoice(kTileMode, item); });
  }
  for (const double blur : {1.0, 10.0, 100.0}) {
    add("blur/" + std::to_string(static_cast<int>(blur)), effect, WorldFormat::Argb8,
        [blur](Instance& instance) { instance.setNumber(kBlur, blur); });
  }
  const std::vector<std::string> modes = effect.parameters()[kBlendMode].items();
  for (std::size_t mode = 0; mode < modes.size(); ++mode) {
    add("mode/" + modes[mode], effect, WorldFormat::Argb8, [mode](Instance& instance) {
      instance.setChoice(kBlendMode, static_cast<int>(mode) + 1);
      instance.setNumber(kOpacity, 70);
    });
  }
}

int run() {
  Host host;
  const EffectModule module(QUILTOR_MODULE_PATH);
  Effect effect(host, module);
  if (!effect.setUp().succeeded()) {
    std::cerr << "frame_bench: " << QUILTOR_MODULE_PATH << " could not be set up\n";
    return EXIT_FAILURE;
  }
  addAll(effect);
  benchmark::RunSpecifiedBenchmarks();
  return EXIT_SUCCESS;
}

}  // namespace
}  // namespace quiltor::standalone

int main(int argc, char** argv) {
  benchmark::Initialize(&argc, argv);
  if (benchmark::ReportUnrecognizedArguments(argc, argv)) return EXIT_FAILURE;
  return quiltor::standalone::run();
}
