#include <png.h>

#include <algorithm>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <functional>
#include <sstream>
#include <string>
#include <thread>
#include <vector>
// The library's header needs the C library's to come first.
#include <jpeglib.h>

#include "formats/ps_pattern.h"
#include "formats/test_pattern_file.h"
#include "formats/test_pictures.h"
#include "library/data_folders.h"
#include "library/library_conversion.h"
#include "standalone/cli/convert_command.h"
#include "standalone/cli/quiet_output.h"

// How much of a conversion's time is its own, and how much that of the libraries that decode and encode: these are
// given the same bytes, in turns with the conversion. Times are the processor's, which other programs hardly change.
// And what all cores do for a conversion that waits for them.
namespace quiltor {
namespace {

constexpr uint32_t kPatternSide = 512, kPatternsPerFile = 8;
constexpr uint32_t kImageWidth = 2000, kImageHeight = 1500;
// So many of them are different; the others are the same file under another name.
constexpr int kDifferentFiles = 5, kRounds = 5;

double processorSeconds() { return static_cast<double>(std::clock()) / CLOCKS_PER_SEC; }

// Slopes with grain, as in paintings and photographs.
uint8_t tone(uint32_t x, uint32_t y, uint32_t channel, uint32_t seed) {
  const uint32_t grain = (x * 2654435761U ^ y * 2246822519U ^ (channel + seed) * 3266489917U) >> 28;
  return static_cast<uint8_t>((x * (seed + 1) / 8 + y / (channel + 2) + grain) & 0xFF);
}

TestPatternFile patternFile(uint32_t seed) {
  TestPatternFile file;
  for (uint32_t i = 0; i < kPatternsPerFile; ++i) {
    TestPattern pattern = {.rectangle = {.top = 0, .left = 0, .bottom = kPatternSide, .right = kPatternSide}};
    for (uint32_t channel = 0; channel < 3; ++channel) {
      TestPlane plane = {.compression = static_cast<uint8_t>(i % 2)};
      for (uint32_t y = 0; y < kPatternSide; ++y) {
        for (uint32_t x = 0; x < kPatternSide; ++x) plane.samples.push_back(tone(x, y, channel, seed + i));
      }
      pattern.planes.push_back(std::move(plane));
    }
    file.patterns.push_back(std::move(pattern));
  }
  return file;
}

void writePhotograph(const std::string& path, uint32_t seed) {
  JpegContents contents = {.width = kImageWidth, .height = kImageHeight, .pixels = {}};
  contents.pixels.reserve(size_t{kImageWidth} * kImageHeight * 3);
  for (uint32_t y = 0; y < kImageHeight; ++y) {
    for (uint32_t x = 0; x < kImageWidth; ++x) {
      for (uint32_t channel = 0; channel < 3; ++channel) contents.pixels.push_back(tone(x, y, channel, seed));
    }
  }
  writeJpeg(path, contents);
}

class Files {
 public:
  // Every round has names of its own, since what is converted is not converted again.
  Files(const std::string& folder, int round, const char* ending, int count,
        const std::function<void(const std::string&, uint32_t)>& write)
      : folder_(folder) {
    std::filesystem::create_directories(folder);
    const std::string start = folder + "/" + std::to_string(round) + "-";
    for (int i = 0; i < count; ++i) {
      const std::string path = start + std::to_string(i) + ending;
      if (i < kDifferentFiles) {
        write(path, static_cast<uint32_t>(i));
      } else {
        std::filesystem::create_hard_link(start + std::to_string(i % kDifferentFiles) + ending, path);
      }
      paths_.push_back(path);
    }
  }

  const std::string& folder() const { return folder_; }
  const std::vector<std::string>& paths() const { return paths_; }

 private:
  std::string folder_;
  std::vector<std::string> paths_;
};

// As the conversion writes them: the strongest compression, no filters.
void encodePng(const std::string& path, const uint8_t* pixels, uint32_t width, uint32_t height, int colour) {
  std::FILE* const file = std::fopen(path.c_str(), "wb");
  png_structp png = png_create_write_struct(PNG_LIBPNG_VER_STRING, nullptr, nullptr, nullptr);
  png_infop info = png_create_info_struct(png);
  png_init_io(png, file);
  png_set_IHDR(png, info, width, height, 8, colour, PNG_INTERLACE_NONE, PNG_COMPRESSION_TYPE_DEFAULT,
               PNG_FILTER_TYPE_DEFAULT);
  png_set_compression_level(png, 9);
  png_set_filter(png, PNG_FILTER_TYPE_BASE, PNG_FILTER_NONE);
  png_write_info(png, info);
  const size_t rowBytes = size_t{width} * (colour == PNG_COLOR_TYPE_RGB ? 3 : 4);
  for (uint32_t y = 0; y < height; ++y) png_write_row(png, pixels + y * rowBytes);
  png_write_end(png, nullptr);
  png_destroy_write_struct(&png, &info);
  std::fclose(file);
}

void decodeJpeg(const std::string& path, std::vector<uint8_t>& row) {
  std::FILE* const file = std::fopen(path.c_str(), "rb");
  jpeg_decompress_struct info = {};
  jpeg_error_mgr errors;
  info.err = jpeg_std_error(&errors);
  jpeg_create_decompress(&info);
  jpeg_stdio_src(&info, file);
  jpeg_read_header(&info, TRUE);
  jpeg_start_decompress(&info);
  row.resize(size_t{info.output_width} * 3);
  uint8_t* rows = row.data();
  while (info.output_scanline < info.output_height) jpeg_read_scanlines(&info, &rows, 1);
  jpeg_finish_decompress(&info);
  jpeg_destroy_decompress(&info);
  std::fclose(file);
}

void report(const char* what, size_t count, double own, double libraries) {
  std::printf("%-34s %6zu done  %8.1f/s  with the libraries alone %8.1f/s  own part %5.1f %%\n", what, count,
              static_cast<double>(count) / own, static_cast<double>(count) / libraries, 100 * (own - libraries) / own);
}

// Runs both in turns, each round on a part of the files.
class Race {
 public:
  template <class Convert, class Libraries>
  void round(Convert convert, Libraries libraries) {
    const double start = processorSeconds();
    convert();
    const double middle = processorSeconds();
    libraries();
    conversion_ += middle - start;
    libraries_ += processorSeconds() - middle;
  }

  double conversion() const { return conversion_; }
  double libraries() const { return libraries_; }

 private:
  double conversion_ = 0, libraries_ = 0;
};

size_t countPngs(const std::string& folder) {
  size_t count = 0;
  for (const auto& entry : std::filesystem::recursive_directory_iterator(folder)) {
    count += entry.path().extension() == ".png";
  }
  return count;
}

bool benchPatterns(const DataFolders& data, int count) {
  std::vector<PsPatterns> decoded(kDifferentFiles);
  Race race;
  for (int round = 0; round < kRounds; ++round) {
    const Files files(data.path("patterns" + std::to_string(round)), round, ".pat", count / kRounds,
                      [](const std::string& path, uint32_t seed) { writeBytes(path, patternFile(seed).bytes()); });
    const standalone::QuietOutput quiet;
    for (size_t i = 0; i < decoded.size() && i < files.paths().size() && decoded[i].empty(); ++i) {
      if (loadPatternFile(files.paths()[i], decoded[i]) != 0) return false;
    }
    race.round([&] { convertLibraryFiles({}, {files.folder()}); },
               [&] {
                 for (size_t i = 0; i < files.paths().size(); ++i) {
                   for (const auto& pattern : decoded[i % kDifferentFiles]) {
                     encodePng(data.path("alone.png"), pattern->pixels.data(), pattern->width, pattern->height,
                               PNG_COLOR_TYPE_RGB_ALPHA);
                   }
                 }
               });
  }
  const size_t made = countPngs(data.all("PS Patterns"));
  report("patterns of 512 x 512 (libpng)", made, race.conversion(), race.libraries());
  return made == static_cast<size_t>(count / kRounds * kRounds) * kPatternsPerFile;
}

bool benchImages(const DataFolders& data, int count) {
  std::vector<uint8_t> row;
  const std::vector<uint8_t> thumbnail(size_t{50} * 50 * 3, 128);
  Race race;
  for (int round = 0; round < kRounds; ++round) {
    const Files files(data.path("images" + std::to_string(round)), round, ".jpg", count / kRounds, writePhotograph);
    race.round([&] { convertLibraryFiles({files.folder()}, {}); },
               [&] {
                 for (const std::string& path : files.paths()) {
                   decodeJpeg(path, row);
                   encodePng(data.path("alone.png"), thumbnail.data(), 50, 50, PNG_COLOR_TYPE_RGB);
                 }
               });
  }
  const size_t made = countPngs(data.all(".cache"));
  report("JPEG of 2000 x 1500 (libjpeg)", made, race.conversion(), race.libraries());
  return made == static_cast<size_t>(count / kRounds * kRounds);
}

// Elapsed, since it is about cores: a busy machine has none to give.
double elapsedSeconds(const std::function<void()>& work) {
  const auto start = std::chrono::steady_clock::now();
  work();
  return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

// How much sooner `quiltor convert` ends on all cores than on one.
bool benchCores(const DataFolders& data, int count) {
  const Files files(data.path("cores"), 0, ".pat", count / kRounds,
                    [](const std::string& path, uint32_t seed) { writeBytes(path, patternFile(seed).bytes()); });
  const std::size_t cores = std::max(1U, std::thread::hardware_concurrency());
  bool good = true;
  const auto convert = [&](std::size_t atOnce) {
    std::ostringstream out, err;
    const std::string output = data.path("cores-" + std::to_string(atOnce));
    good = standalone::runConvert({{files.folder()}, output, atOnce}, {out, err}) && good;
  };
  double alone = 0, together = 0;
  for (int round = 0; round < kRounds; ++round) {
    alone += elapsedSeconds([&] { convert(1); });
    together += elapsedSeconds([&] { convert(cores); });
  }
  std::printf("%-34s %6d files %7.2f s on one core, %.2f s on %zu: %.2f times as fast\n", "quiltor convert, elapsed",
              count / kRounds, alone / kRounds, together / kRounds, cores, alone / together);
  return good;
}

}  // namespace
}  // namespace quiltor

int main() {
  // QUILTOR_BENCH_FILES=100 takes minutes.
  const char* const wanted = std::getenv("QUILTOR_BENCH_FILES");
  const int files = wanted ? std::atoi(wanted) : 10;
  const quiltor::DataFolders data;
  if (!quiltor::benchPatterns(data, files) || !quiltor::benchImages(data, files * 10) ||
      !quiltor::benchCores(data, files)) {
    std::fprintf(stderr, "library_bench: not all files were converted\n");
    return 1;
  }
  return 0;
}
