// A row of a comparison with other programs. Reads one request a line and answers each with a line:
//   setup JOB WIDTH HEIGHT FORMAT THREADS   ok NOTE, or: na REASON
//   frame                                   ms MILLISECONDS
//   processor                               ms MILLISECONDS of all cores for the last frame
//   dump PATH                               ok: the last frame, straight R, G, B, A, 8 bits a channel
//   quit
// The pictures are raw R, G, B, A, 8 bits a channel, in the folder that PEERS_DATA names: pattern.rgba of 256 x 256
// pixels and layer_WIDTHxHEIGHT.rgba. An argument names another module than this build's, to compare the two.
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iostream>
#include <iterator>
#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

#include "bench/frame_runner.h"
#include "bench/pictures.h"
#include "bench/use_cores.h"

namespace quiltor::bench {
namespace {

using standalone::Rgba;
using standalone::World;
using standalone::WorldFormat;

World readWorld(const std::string& path, WorldFormat format, int width, int height) {
  std::ifstream file(path, std::ios::binary);
  const std::vector<char> bytes{std::istreambuf_iterator<char>(file), {}};
  if (bytes.size() != std::size_t{4} * static_cast<std::size_t>(width) * static_cast<std::size_t>(height)) {
    throw std::runtime_error(path + " is missing or has another size");
  }
  World world(format, width, height);
  const char* pixel = bytes.data();
  for (int y = 0; y < height; ++y) {
    for (int x = 0; x < width; ++x, pixel += 4) {
      const auto channel = [&](int c) { return static_cast<uint8_t>(pixel[c]) / 255.0; };
      world.set(x, y, {channel(0), channel(1), channel(2), channel(3)});
    }
  }
  return world;
}

class Row {
 public:
  explicit Row(const std::string& modulePath) : runner_(modulePath) {}

  std::string answer(const std::string& line) {
    std::istringstream words(line);
    std::string verb;
    words >> verb;
    if (verb == "setup") return setUp(words);
    if (verb == "frame") last_ = runner_.frame();
    if (verb == "frame") return "ms " + std::to_string(last_.elapsed);
    if (verb == "processor") return "ms " + std::to_string(last_.processor);
    if (verb == "dump") return dump(words);
    return "na unknown request";
  }

 private:
  std::string setUp(std::istream& words) {
    std::string name, formatName;
    int width = 0, height = 0, threads = 1;
    words >> name >> width >> height >> formatName >> threads;
    const auto job = frameJob(name);
    const auto format = worldFormat(formatName);
    if (!job || !format || width < 1 || height < 1 || threads < 1) return "na unknown job";
    const char* folder = std::getenv("PEERS_DATA");
    const std::string data = folder ? folder : ".";
    const std::string size = std::to_string(width) + "x" + std::to_string(height);
    input_ = readWorld(data + "/layer_" + size + ".rgba", *format, width, height);
    pattern_ = readWorld(data + "/pattern.rgba", *format, kPatternSide, kPatternSide);
    useCores(threads);
    runner_.setUp(*job, input_, pattern_, threads);
    return "ok whole call, 32 threads a pass";
  }

  std::string dump(std::istream& words) {
    std::string path;
    words >> path;
    const World picture = runner_.picture().converted(WorldFormat::Argb8);
    std::ofstream file(path, std::ios::binary);
    for (int y = 0; y < picture.height(); ++y) {
      const unsigned char* pixel = picture.row(y);
      for (int x = 0; x < picture.width(); ++x, pixel += 4) {
        const char rgba[] = {static_cast<char>(pixel[1]), static_cast<char>(pixel[2]), static_cast<char>(pixel[3]),
                             static_cast<char>(pixel[0])};
        file.write(rgba, sizeof rgba);
      }
    }
    return file ? "ok" : "na cannot write";
  }

  FrameRunner::Milliseconds last_;
  FrameRunner runner_;
  World input_{WorldFormat::Argb8, 0, 0}, pattern_{WorldFormat::Argb8, 0, 0};
};

int serve(const std::string& modulePath) {
  Row row(modulePath);
  for (std::string line; std::getline(std::cin, line) && line != "quit";) {
    try {
      std::cout << row.answer(line) << std::endl;
    } catch (const std::exception& error) {
      std::cout << "na " << error.what() << std::endl;
    }
  }
  return EXIT_SUCCESS;
}

}  // namespace
}  // namespace quiltor::bench

int main(int argc, char** argv) {
  try {
    return quiltor::bench::serve(argc > 1 ? argv[1] : QUILTOR_MODULE_PATH);
  } catch (const std::exception& error) {
    std::cerr << "frame_row: " << error.what() << "\n";
    return EXIT_FAILURE;
  }
}
