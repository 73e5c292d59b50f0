// How long the built module takes for a frame, beside a loop that moves the same bytes, the plain reference and, for
// J2, Cairo: all in turns in one run, so that the machine's changes meet all of them.
#include <cairo.h>

#include <CLI/CLI.hpp>
#include <algorithm>
#include <chrono>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <functional>
#include <nlohmann/json.hpp>
#include <numbers>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

#include "bench/frame_runner.h"
#include "tests/reference/render.h"

namespace quiltor::bench {
namespace {

using standalone::World;
using standalone::WorldFormat;

constexpr int kPatternSide = 256, kThreads = 2, kWarmUp = 2;
// Of the plain reference, whose time per pixel does not depend on the frame's size.
constexpr int kPlainWidth = 256, kPlainHeight = 144;

struct Options {
  std::vector<std::string> jobs{"J1", "J2", "J3", "J4a", "J4b"};
  std::vector<std::string> formats{"u8", "u16", "f32"};
  std::string size = "1920x1080";
  int frames = 11;
  bool json = false, modes = false, alone = false;
};

World picture(WorldFormat format, int width, int height, unsigned seed) {
  World world(format, width, height);
  for (int y = 0; y < height; ++y) {
    for (int x = 0; x < width; ++x) {
      const unsigned grain =
          ((static_cast<unsigned>(x) * 2654435761U) ^ (static_cast<unsigned>(y + 7) * 2246822519U)) + seed;
      const auto channel = [&](unsigned shift, double slope) { return 0.8 * slope + (grain >> shift & 63) / 320.0; };
      world.set(x, y,
                {channel(8, double(x) / width), channel(14, double(y) / height), channel(20, double(x % 97) / 97),
                 x % 16 == 0 ? 0.5 : 1});
    }
  }
  return world;
}

double millisecondsOf(const std::function<void()>& work) {
  const auto start = std::chrono::steady_clock::now();
  work();
  return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start).count();
}

double median(std::vector<double> values) {
  std::sort(values.begin(), values.end());
  return values[values.size() / 2];
}

// What the effect has to read and write for a pixel: its copy of the input, the result, the copy and the result again;
// with a blur the colours between its halves and the waiting alpha as well.
double bytesPerPixel(WorldFormat format, bool blurred) {
  const double world = standalone::bytesPerPixel(format), copy = world == 4 ? 4 : 16, result = 16;
  return world + copy + copy + result + result + world + (blurred ? 2.0 * 12 + 2 * 4 : 0);
}

// Copies half as many bytes as are to be moved, on all cores.
class BandwidthLoop {
 public:
  explicit BandwidthLoop(double bytes) : from_(static_cast<size_t>(bytes / 2 / kThreads), 1), to_(kThreads, from_) {}

  double run() {
    return millisecondsOf([&] {
      std::vector<std::jthread> threads;
      for (auto& to : to_) threads.emplace_back([&] { std::memcpy(to.data(), from_.data(), to.size()); });
    });
  }

 private:
  std::vector<char> from_;
  std::vector<std::vector<char>> to_;
};

reference::Picture referencePicture(int width, int height, unsigned seed) {
  const World world = picture(WorldFormat::ArgbFloat, width, height, seed);
  reference::Picture out(width, height);
  for (int y = 0; y < height; ++y) {
    for (int x = 0; x < width; ++x) {
      const auto p = world.at(x, y);
      out.at(x, y) = {float(p.r), float(p.g), float(p.b), float(p.a)};
    }
  }
  return out;
}

// Milliseconds for a frame of so many pixels, from one that is much smaller.
double plainReference(const FrameJob& job, double pixels) {
  reference::Frame frame;
  frame.input = referencePicture(kPlainWidth, kPlainHeight, 1);
  frame.outputWidth = kPlainWidth;
  frame.outputHeight = kPlainHeight;
  frame.pattern = referencePicture(kPatternSide, kPatternSide, 2);
  frame.tile = static_cast<reference::Tile>(job.tileMode - 1);
  frame.blendMode = job.blendMode - 1;
  frame.opacity = static_cast<float>(job.opacity);
  frame.scale = static_cast<float>(job.scale);
  frame.rotation = static_cast<float>(job.rotation);
  frame.blur = static_cast<float>(job.blur);
  frame.offsetX = kPlainWidth / 2;
  frame.offsetY = kPlainHeight / 2;
  return millisecondsOf([&] { reference::render(frame); }) * pixels / (double{kPlainWidth} * kPlainHeight);
}

// J2 as Cairo's users draw it: a repeated bilinear pattern, turned and scaled, in Multiply. One thread.
class CairoFrame {
 public:
  CairoFrame(int width, int height)
      : target_(cairo_image_surface_create(CAIRO_FORMAT_ARGB32, width, height)),
        pattern_(cairo_image_surface_create(CAIRO_FORMAT_ARGB32, kPatternSide, kPatternSide)),
        width_(width),
        height_(height) {
    fill(target_);
    fill(pattern_);
  }
  ~CairoFrame() {
    cairo_surface_destroy(pattern_);
    cairo_surface_destroy(target_);
  }
  CairoFrame(const CairoFrame&) = delete;
  CairoFrame& operator=(const CairoFrame&) = delete;

  double draw() {
    return millisecondsOf([&] {
      cairo_t* context = cairo_create(target_);
      cairo_translate(context, width_ / 2.0, height_ / 2.0);
      cairo_rotate(context, std::numbers::pi / 6);
      cairo_scale(context, 0.73, 0.73);
      cairo_set_source_surface(context, pattern_, -kPatternSide / 2.0, -kPatternSide / 2.0);
      cairo_pattern_set_extend(cairo_get_source(context), CAIRO_EXTEND_REPEAT);
      cairo_pattern_set_filter(cairo_get_source(context), CAIRO_FILTER_BILINEAR);
      cairo_set_operator(context, CAIRO_OPERATOR_MULTIPLY);
      cairo_paint_with_alpha(context, 0.7);
      cairo_destroy(context);
      cairo_surface_flush(target_);
    });
  }

 private:
  static void fill(cairo_surface_t* surface) {
    unsigned char* const data = cairo_image_surface_get_data(surface);
    const int bytes = cairo_image_surface_get_stride(surface) * cairo_image_surface_get_height(surface);
    for (int i = 0; i < bytes; ++i) data[i] = i % 4 == 3 ? 255 : static_cast<unsigned char>(i * 31);
    cairo_surface_mark_dirty(surface);
  }

  cairo_surface_t* target_;
  cairo_surface_t* pattern_;
  int width_, height_;
};

struct Size {
  int width = 0, height = 0;
};

Size sizeOf(const std::string& text) {
  Size size;
  if (std::sscanf(text.c_str(), "%dx%d", &size.width, &size.height) != 2 || size.width < 1 || size.height < 1) {
    throw std::runtime_error("the size is \"" + text + "\", expected something like 1920x1080");
  }
  return size;
}

class Bench {
 public:
  explicit Bench(const Options& options) : options_(options), size_(sizeOf(options.size)) {}

  void jobs() {
    for (const std::string& formatName : options_.formats) {
      const auto format = worldFormat(formatName);
      if (!format) throw std::runtime_error("there is no format \"" + formatName + "\", only u8, u16 and f32");
      prepare(*format);
      for (const std::string& name : options_.jobs) {
        const auto job = frameJob(name);
        if (!job) throw std::runtime_error("there is no job \"" + name + "\", only J1, J2, J3, J4a and J4b");
        options_.alone ? drawAlone(*job) : measure(name, formatName, *job);
      }
    }
    if (options_.json) std::puts(results_.dump(1).c_str());
  }

  // Every mode in every format, as a share of Multiply.
  void modes() {
    constexpr int kMultiply = 8;
    for (const std::string& formatName : options_.formats) {
      prepare(worldFormat(formatName).value());
      const std::vector<std::string> names = runner_.effect().parameters()[6].items();
      std::vector<std::vector<double>> times(names.size());
      for (int round = 0; round < options_.frames; ++round) {
        for (size_t mode = 0; mode < names.size(); ++mode) {
          FrameJob job = frameJob("J2").value();
          job.blendMode = static_cast<int>(mode) + 1;
          runner_.setUp(job, *input_, *pattern_, kThreads);
          runner_.frame();
          times[mode].push_back(runner_.frame().processor);
        }
      }
      const double multiply = median(times[kMultiply - 1]);
      for (size_t mode = 0; mode < names.size(); ++mode) {
        const double time = median(times[mode]);
        results_.push_back(
            {{"format", formatName}, {"mode", names[mode]}, {"processor_ms", time}, {"to_multiply", time / multiply}});
      }
    }
    std::puts(results_.dump(1).c_str());
  }

 private:
  void prepare(WorldFormat format) {
    format_ = format;
    input_ = picture(format, size_.width, size_.height, 1);
    pattern_ = picture(format, kPatternSide, kPatternSide, 2);
  }

  void drawAlone(const FrameJob& job) {
    runner_.setUp(job, *input_, *pattern_, 1);
    for (int i = 0; i < options_.frames; ++i) runner_.frame();
  }

  void measure(const std::string& name, const std::string& formatName, const FrameJob& job) {
    const double pixels = double(size_.width) * size_.height, bytes = pixels * bytesPerPixel(format_, job.blur > 0);
    BandwidthLoop loop(bytes);
    CairoFrame cairo(size_.width, size_.height);
    const bool asksCairo = name == "J2" && formatName == "u8";
    runner_.setUp(job, *input_, *pattern_, kThreads);
    std::vector<double> elapsed, processor, moved, plain, drawn;
    for (int i = 0; i < options_.frames + kWarmUp; ++i) {
      const auto frame = runner_.frame();
      const double bandwidth = loop.run(), other = asksCairo ? cairo.draw() : 0;
      if (i < kWarmUp) continue;
      elapsed.push_back(frame.elapsed);
      processor.push_back(frame.processor);
      moved.push_back(bandwidth);
      drawn.push_back(other);
      if (plain.size() < 3) plain.push_back(plainReference(job, pixels));
    }
    const double ms = median(elapsed);
    nlohmann::json row{{"job", name},
                       {"format", formatName},
                       {"size", options_.size},
                       {"megabytes", bytes / 1e6},
                       {"ms", ms},
                       {"processor_ms", median(processor)},
                       {"to_bandwidth", ms / median(moved)},
                       {"plain_to_this", median(plain) / ms}};
    if (asksCairo) row["cairo_to_this"] = median(drawn) / ms;
    print(row);
    results_.push_back(std::move(row));
  }

  void print(const nlohmann::json& row) {
    if (options_.json) return;
    if (results_.empty()) {
      std::printf("%-4s %-4s %-10s %8s %9s %9s %13s %14s\n", "job", "", "size", "MB moved", "ms", "cpu ms",
                  "x bandwidth", "plain x this");
    }
    std::printf("%-4s %-4s %-10s %8.0f %9.2f %9.2f %13.2f %14.0f", row["job"].get<std::string>().c_str(),
                row["format"].get<std::string>().c_str(), options_.size.c_str(), row["megabytes"].get<double>(),
                row["ms"].get<double>(), row["processor_ms"].get<double>(), row["to_bandwidth"].get<double>(),
                row["plain_to_this"].get<double>());
    if (row.contains("cairo_to_this")) std::printf("  Cairo x this %.1f", row["cairo_to_this"].get<double>());
    std::puts("");
    std::fflush(stdout);
  }

  Options options_;
  Size size_;
  FrameRunner runner_{QUILTOR_MODULE_PATH};
  WorldFormat format_ = WorldFormat::Argb8;
  std::optional<World> input_, pattern_;
  nlohmann::json results_ = nlohmann::json::array();
};

}  // namespace
}  // namespace quiltor::bench

int main(int argc, char** argv) {
  quiltor::bench::Options options;
  CLI::App app("Measures how long the effect takes for a frame.");
  app.add_option("--jobs", options.jobs, "J1, J2, J3, J4a, J4b")->delimiter(',');
  app.add_option("--formats", options.formats, "u8, u16, f32")->delimiter(',');
  app.add_option("--size", options.size, "WIDTHxHEIGHT");
  app.add_option("--frames", options.frames, "how many frames the medians are of")->check(CLI::PositiveNumber);
  app.add_flag("--json", options.json, "the figures as JSON");
  app.add_flag("--modes", options.modes, "all blend modes instead of the jobs, as JSON");
  app.add_flag("--alone", options.alone, "draws the frames and measures nothing, for profilers");
  CLI11_PARSE(app, argc, argv);
  try {
    quiltor::bench::Bench bench(options);
    options.modes ? bench.modes() : bench.jobs();
    return EXIT_SUCCESS;
  } catch (const std::exception& error) {
    std::fprintf(stderr, "frame_bench: %s\n", error.what());
    return EXIT_FAILURE;
  }
}
