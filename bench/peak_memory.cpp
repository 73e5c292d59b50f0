#include "bench/peak_memory.h"

#include <malloc.h>

#include <fstream>
#include <optional>
#include <string>

#include "bench/frames_in_turn.h"
#include "bench/pictures.h"

namespace quiltor::bench {
namespace {

using standalone::World;
using standalone::WorldFormat;

constexpr double kMebibyte = 1 << 20;
constexpr int kWorkers = 32;

// A figure of this process in kibibytes.
std::optional<double> memoryFigure(const std::string& name) {
  std::ifstream status("/proc/self/status");
  for (std::string word; status >> word;) {
    double kibibytes = 0;
    if (word == name + ":" && status >> kibibytes) return kibibytes;
  }
  return std::nullopt;
}

// From now on the peak is that of what follows.
bool forgetPeak() {
  std::ofstream file("/proc/self/clear_refs");
  file << 5;
  file.close();
  return file.good();
}

// Mebibytes that the effect may hold.
double meantToHold(const FrameJob& job, WorldFormat format, const FrameSize& size) {
  const double copied = format == WorldFormat::Argb8 ? 4 : 16, colours = job.blur > 0 ? 3 * sizeof(float) : 0;
  const double bytes =
      size.pixels() * (copied + 4 * sizeof(float) + colours) + double{kPatternSide} * kPatternSide * copied;
  return bytes / kMebibyte + kWorkers;
}

}  // namespace

bool canMeasurePeakMemory() { return forgetPeak() && memoryFigure("VmRSS") && memoryFigure("VmHWM"); }

void limitPeakMemory(const char* modulePath, const std::string& format, const FrameSize& size, Limits& limits) {
  const World input = layerPicture(worldFormat(format).value(), size.width, size.height);
  const World pattern = patternPicture(input.format());
  for (const char* name : {"J2", "J4b"}) {
    const FrameJob job = frameJob(name).value();
    // Its host has no memory in store, and what the allocator keeps would hide what is taken from it.
    FrameRunner runner(modulePath);
    runner.setUp(job, input, pattern, kThreads);
    malloc_trim(0);
    const double before = memoryFigure("VmRSS").value();
    forgetPeak();
    runner.frame();
    const double hosts = size.pixels() * bytesPerPixel(input.format()) / kMebibyte;
    const double peak = (memoryFigure("VmHWM").value() - before) / 1024 - hosts;
    limits.add({std::string("peak memory of ") + name, format, size.text(), peak, "MiB",
                meantToHold(job, input.format(), size)});
  }
}

}  // namespace quiltor::bench
