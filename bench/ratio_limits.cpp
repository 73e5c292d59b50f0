#include "bench/ratio_limits.h"

#include <algorithm>
#include <cstddef>
#include <string>
#include <vector>

#include "bench/frames_in_turn.h"
#include "bench/pictures.h"
#include "platform/scratch_folder.h"
#include "standalone/host/picture_file.h"

namespace quiltor::bench {
namespace {

using standalone::World;

enum TileMode { kSingle = 1, kTiled, kMirrored };

FrameJob turned() { return frameJob("J2").value(); }

FrameJob withTileMode(TileMode mode) {
  FrameJob job = turned();
  job.tileMode = mode;
  return job;
}

FrameJob withScale(double percent) {
  FrameJob job = turned();
  job.scale = percent;
  return job;
}

}  // namespace

void limitRatios(FrameRunner& runner, const std::string& format, const FrameSize& size, int frames, Limits& limits) {
  constexpr int kTimesLarger = 4096 / kPatternSide;
  const World input = layerPicture(worldFormat(format).value(), size.width, size.height);
  const World small = patternPicture(input.format()), large = repeated(small, kTimesLarger);
  const ScratchFolder folder;
  const auto saved = [&](const char* name, const World& pattern) {
    standalone::writePng(folder.path(name), pattern.converted(standalone::WorldFormat::Argb8));
    return runner.savedWith(folder.path(name));
  };
  const std::vector<unsigned char> smallFile = saved("small.png", small), largeFile = saved("large.png", large);
  std::vector<FrameVariant> variants;
  const auto variant = [&](const FrameJob& job, const World* layer, const std::vector<unsigned char>* file = nullptr) {
    variants.push_back({job, &input, layer, file});
    return variants.size() - 1;
  };
  const std::size_t tiled = variant(withTileMode(kTiled), &small), single = variant(withTileMode(kSingle), &small),
                    mirrored = variant(withTileMode(kMirrored), &small);
  const std::size_t scaleOf100 = variant(withScale(100), &small), scaleOf1 = variant(withScale(1), &small);
  const std::size_t fromLarge = variant(turned(), nullptr, &largeFile),
                    fromSmall = variant(turned(), nullptr, &smallFile), overLarge = variant(turned(), &large);
  const std::size_t blurOf10 = variant(frameJob("J4a").value(), &small),
                    blurOf100 = variant(frameJob("J4b").value(), &small);
  const auto times = drawInTurn(runner, variants, frames);
  const auto add = [&](const char* what, std::size_t of, std::size_t to, double limit) {
    limits.add({what, format, size.text(), times[of].elapsed / times[to].elapsed, "x", limit});
  };
  add("Single to Tiled", single, tiled, 1.2);
  add("Mirrored to Tiled", mirrored, tiled, 1.2);
  add("scale 1 % to 100 %", scaleOf1, scaleOf100, 1.5);
  add("a pattern file of 4096x4096 to one of 256x256", fromLarge, fromSmall, 1.6);
  // The effect copies layers: that of the pattern has eight times as many pixels as a small frame.
  add("a pattern layer of 4096x4096 to one of 256x256", overLarge, tiled, 1.6);
  add("a blur of 100 to one of 10", blurOf100, blurOf10, 1.3);
}

void limitSmallFrame(FrameRunner& runner, int frames, Limits& limits) {
  constexpr FrameSize kSmall{320, 180};
  for (const char* format : {"u8", "u16", "f32"}) {
    const World input = layerPicture(worldFormat(format).value(), kSmall.width, kSmall.height);
    const World pattern = patternPicture(input.format());
    const auto times = drawInTurn(runner, {{turned(), &input, &pattern}}, frames);
    limits.add({"a small frame", format, kSmall.text(), times.front().elapsed, "ms", 3});
  }
}

nlohmann::json limitModes(FrameRunner& runner, const std::string& format, const FrameSize& size, int frames,
                          Limits& limits) {
  const World input = layerPicture(worldFormat(format).value(), size.width, size.height);
  const World pattern = patternPicture(input.format());
  const std::vector<std::string> names = runner.effect().parameters()[kBlendMode].items();
  std::vector<FrameVariant> variants;
  for (std::size_t mode = 0; mode < names.size(); ++mode) {
    FrameJob job = turned();
    job.blendMode = static_cast<int>(mode) + 1;
    variants.push_back({job, &input, &pattern});
  }
  const auto times = drawInTurn(runner, variants, frames);
  const double multiply = times[static_cast<std::size_t>(turned().blendMode - 1)].elapsed;
  const auto slowest = std::ranges::max_element(times, {}, &FrameRunner::Milliseconds::elapsed);
  limits.add({"the slowest mode to Multiply: " + names[static_cast<std::size_t>(slowest - times.begin())], format,
              size.text(), slowest->elapsed / multiply, "x", 1.5});
  nlohmann::json rows = nlohmann::json::array();
  for (std::size_t mode = 0; mode < names.size(); ++mode) {
    rows.push_back({{"format", format},
                    {"size", size.text()},
                    {"mode", names[mode]},
                    {"ms", times[mode].elapsed},
                    {"processor_ms", times[mode].processor},
                    {"to_multiply", times[mode].elapsed / multiply}});
  }
  return rows;
}

}  // namespace quiltor::bench
