// How long the built module takes for a frame, and whether that stays below the limits that it is held to. What is
// compared is measured in turns in one run, so that the machine's changes meet all of it.
#include <CLI/CLI.hpp>
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <nlohmann/json.hpp>
#include <stdexcept>
#include <string>
#include <vector>

#include "bench/frame_runner.h"
#include "bench/frame_size.h"
#include "bench/job_table.h"
#include "bench/limits.h"
#include "bench/peak_memory.h"
#include "bench/pictures.h"
#include "bench/program_start.h"
#include "bench/ratio_limits.h"

namespace quiltor::bench {
namespace {

struct Options {
  std::vector<std::string> parts{"jobs", "ratios", "modes", "small", "memory", "start"};
  std::vector<std::string> jobs{"J1", "J2", "J3", "J4a", "J4b"};
  std::vector<std::string> formats{"u8", "u16", "f32"};
  std::vector<std::string> sizes{"1920x1080", "3840x2160"};
  int frames = 11;
  bool json = false, alone = false;
};

class Bench {
 public:
  explicit Bench(const Options& options) : options_(options), table_(!options.json), limits_(!options.json) {
    for (const std::string& job : options.jobs) {
      if (!frameJob(job)) throw std::runtime_error("there is no job \"" + job + "\", only J1, J2, J3, J4a and J4b");
    }
    for (const std::string& format : options.formats) {
      if (!worldFormat(format)) throw std::runtime_error("there is no format \"" + format + "\", only u8, u16 and f32");
    }
    for (const std::string& size : options.sizes) sizes_.push_back(frameSize(size));
  }

  // Draws the frames of the jobs and measures nothing, for profilers.
  void drawAlone() {
    FrameRunner runner(QUILTOR_MODULE_PATH);
    forEach([&](const std::string& format, const FrameSize& size) {
      const standalone::World input = layerPicture(worldFormat(format).value(), size.width, size.height);
      const standalone::World pattern = patternPicture(input.format());
      for (const std::string& name : options_.jobs) {
        runner.setUp(frameJob(name).value(), input, pattern, 1);
        for (int i = 0; i < options_.frames; ++i) runner.frame();
      }
    });
  }

  void run() {
    drawFrames();
    if (wants("memory") && !canMeasurePeakMemory()) {
      std::fputs("peak memory: not measured, because the system does not tell a process's peak\n", stderr);
    } else if (wants("memory")) {
      forEach([&](const std::string& format, const FrameSize& size) {
        limitPeakMemory(QUILTOR_MODULE_PATH, format, size, limits_);
      });
    }
    if (wants("start")) limitProgramStart(QUILTOR_PROGRAM, options_.frames, limits_);
    if (!options_.json) return;
    const nlohmann::json all{{"jobs", table_.results()}, {"limits", limits_.results()}, {"modes", modes_}};
    std::puts(all.dump(1).c_str());
  }

 private:
  bool wants(const std::string& part) const { return std::ranges::find(options_.parts, part) != options_.parts.end(); }

  void drawFrames() {
    FrameRunner runner(QUILTOR_MODULE_PATH);
    if (wants("jobs")) {
      forEach([&](const std::string& format, const FrameSize& size) {
        for (const std::string& name : options_.jobs) table_.measure(runner, name, format, size, options_.frames);
      });
    }
    if (wants("ratios")) {
      forEach([&](const std::string& format, const FrameSize& size) {
        limitRatios(runner, format, size, options_.frames, limits_);
      });
    }
    if (wants("modes")) {
      forEach([&](const std::string& format, const FrameSize& size) {
        const auto rows = limitModes(runner, format, size, options_.frames, limits_);
        modes_.insert(modes_.end(), rows.begin(), rows.end());
      });
    }
    if (wants("small")) limitSmallFrame(runner, options_.frames, limits_);
  }

  template <class Work>
  void forEach(const Work& work) {
    for (const FrameSize& size : sizes_) {
      for (const std::string& format : options_.formats) work(format, size);
    }
  }

  Options options_;
  std::vector<FrameSize> sizes_;
  JobTable table_;
  Limits limits_;
  nlohmann::json modes_ = nlohmann::json::array();
};

}  // namespace
}  // namespace quiltor::bench

int main(int argc, char** argv) {
  quiltor::bench::Options options;
  const CLI::IsMember parts(std::vector<std::string>(options.parts));
  CLI::App app("Measures how long the effect takes for a frame.");
  app.add_option("--parts", options.parts, "jobs, ratios, modes, small, memory, start; all without it")
      ->delimiter(',')
      ->check(parts);
  app.add_option("--jobs", options.jobs, "J1, J2, J3, J4a, J4b")->delimiter(',');
  app.add_option("--formats", options.formats, "u8, u16, f32")->delimiter(',');
  app.add_option("--sizes", options.sizes, "WIDTHxHEIGHT")->delimiter(',');
  app.add_option("--frames", options.frames, "how many frames the medians are of")->check(CLI::PositiveNumber);
  app.add_flag("--json", options.json, "the figures as JSON");
  app.add_flag("--alone", options.alone, "draws the frames of the jobs and measures nothing, for profilers");
  CLI11_PARSE(app, argc, argv);
  try {
    quiltor::bench::Bench bench(options);
    options.alone ? bench.drawAlone() : bench.run();
    return EXIT_SUCCESS;
  } catch (const std::exception& error) {
    std::fprintf(stderr, "frame_bench: %s\n", error.what());
    return EXIT_FAILURE;
  }
}
