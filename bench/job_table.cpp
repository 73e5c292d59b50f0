#include "bench/job_table.h"

#include <cstddef>
#include <cstdio>

#include "bench/bandwidth_loop.h"
#include "bench/frames_in_turn.h"
#include "bench/other_painters.h"
#include "bench/pictures.h"
#include "bench/plain_reference.h"
#include "bench/timing.h"

namespace quiltor::bench {
namespace {

using standalone::World;
using standalone::WorldFormat;

constexpr int kWarmUp = 2;
constexpr std::size_t kPlainFrames = 3;

// What the effect has to read and write for a pixel: its copy of the input, the result, the copy and the result again;
// with a blur the colours between its halves as well. The alpha of an opaque pattern does not wait in memory.
double bytesPerPixel(WorldFormat format, bool blurred) {
  const double world = standalone::bytesPerPixel(format), copy = world == 4 ? 4 : 16, result = 16;
  return world + copy + copy + result + result + world + (blurred ? 2.0 * 12 : 0);
}

}  // namespace

void JobTable::measure(FrameRunner& runner, const std::string& name, const std::string& format, const FrameSize& size,
                       int frames) {
  const FrameJob job = frameJob(name).value();
  const World input = layerPicture(worldFormat(format).value(), size.width, size.height);
  const World pattern = patternPicture(input.format());
  const double bytes = size.pixels() * bytesPerPixel(input.format(), job.blur > 0);
  BandwidthLoop loop(bytes, kThreads);
  std::vector<std::unique_ptr<OtherPainter>> others;
  if (name == "J2" && format == "u8") others = otherPainters(input, pattern);
  runner.setUp(job, input, pattern, kThreads);
  std::vector<double> elapsed, processor, moved, plain;
  std::vector<std::vector<double>> drawn(others.size());
  for (int i = 0; i < frames + kWarmUp; ++i) {
    const auto frame = runner.frame();
    const double bandwidth = millisecondsOf([&] { loop.run(); });
    for (std::size_t other = 0; other < others.size(); ++other) {
      const double time = millisecondsOf([&] { others[other]->draw(); });
      if (i >= kWarmUp) drawn[other].push_back(time);
    }
    if (i < kWarmUp) continue;
    elapsed.push_back(frame.elapsed);
    processor.push_back(frame.processor);
    moved.push_back(bandwidth);
    if (plain.size() < kPlainFrames) plain.push_back(plainReference(job, size.pixels()));
  }
  const double ms = median(elapsed);
  nlohmann::json row{{"job", name},
                     {"format", format},
                     {"size", size.text()},
                     {"megabytes", bytes / 1e6},
                     {"ms", ms},
                     {"processor_ms", median(processor)},
                     {"to_bandwidth", ms / median(moved)},
                     {"plain_to_this", median(plain) / ms},
                     {"others_to_this", nlohmann::json::object()}};
  for (std::size_t other = 0; other < others.size(); ++other) {
    row["others_to_this"][others[other]->name()] = median(drawn[other]) / ms;
  }
  if (print_) print(row);
  results_.push_back(std::move(row));
}

void JobTable::print(const nlohmann::json& row) const {
  if (results_.empty()) {
    std::printf("%-4s %-4s %-10s %8s %9s %9s %13s %14s\n", "job", "", "size", "MB moved", "ms", "cpu ms", "x bandwidth",
                "plain x this");
  }
  std::printf("%-4s %-4s %-10s %8.0f %9.2f %9.2f %13.2f %14.0f", row["job"].get<std::string>().c_str(),
              row["format"].get<std::string>().c_str(), row["size"].get<std::string>().c_str(),
              row["megabytes"].get<double>(), row["ms"].get<double>(), row["processor_ms"].get<double>(),
              row["to_bandwidth"].get<double>(), row["plain_to_this"].get<double>());
  for (const auto& [name, ratio] : row["others_to_this"].items()) {
    std::printf("  %s x this %.1f", name.c_str(), ratio.get<double>());
  }
  std::puts("");
  std::fflush(stdout);
}

}  // namespace quiltor::bench
