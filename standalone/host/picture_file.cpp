#include "standalone/host/picture_file.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <fstream>
#include <iterator>
#include <random>
#include <string>
#include <system_error>
#include <vector>

#include "base/utf8_path.h"
#include "platform/file.h"
#include "platform/system_message.h"
#include "standalone/host/picture_codec.h"

namespace quiltor::standalone {
namespace {

std::vector<unsigned char> readWhole(const std::filesystem::path& path) {
  std::error_code error;
  if (std::filesystem::is_directory(path, error)) {
    throw PictureError("cannot read " + utf8FromPath(path) + ": it is a folder, expected a PNG or JPEG picture");
  }
  if (std::filesystem::exists(path, error) && !std::filesystem::is_regular_file(path, error)) {
    throw PictureError("cannot read " + utf8FromPath(path) + ": it is no file, expected a PNG or JPEG picture");
  }
  std::ifstream file(path, std::ios::binary);
  if (!file) throw PictureError("cannot read " + utf8FromPath(path) + ": no such file or no permission");
  std::vector<unsigned char> bytes{std::istreambuf_iterator<char>(file), {}};
  if (file.bad()) throw PictureError("cannot read " + utf8FromPath(path) + ": reading failed");
  return bytes;
}

bool startsWith(const std::vector<unsigned char>& bytes, std::initializer_list<unsigned char> magic) {
  return bytes.size() >= magic.size() && std::equal(magic.begin(), magic.end(), bytes.begin());
}

double sampleAt(const DecodedPicture& picture, std::size_t index) {
  if (picture.bytesPerSample == 1) return picture.samples[index] / 255.0;
  return (picture.samples[2 * index] * 256 + picture.samples[2 * index + 1]) / 65535.0;
}

// Returns where the next sample goes.
unsigned char* putSample(unsigned char* place, double value, int bytesPerSample) {
  // The comparison sends not-a-number to 0.
  const double clamped = value > 0 ? std::min(value, 1.0) : 0.0;
  const long sample = std::lround(clamped * (bytesPerSample == 1 ? 255 : 65535));
  if (bytesPerSample == 2) *place++ = static_cast<unsigned char>(sample >> 8);
  *place++ = static_cast<unsigned char>(sample & 255);
  return place;
}

bool has8Bits(const World& world) { return bytesPerPixel(world.format()) == 4; }

DecodedPicture picture8or16(const World& world) {
  DecodedPicture picture;
  picture.width = world.width();
  picture.height = world.height();
  picture.bytesPerSample = has8Bits(world) ? 1 : 2;
  picture.samples.resize(rowBytes(picture) * static_cast<std::size_t>(picture.height));
  unsigned char* place = picture.samples.data();
  for (int y = 0; y < world.height(); ++y) {
    if (has8Bits(world)) {
      world.copyRow8(y, place);
      place += rowBytes(picture);
      continue;
    }
    for (int x = 0; x < world.width(); ++x) {
      const Rgba color = world.at(x, y);
      for (const double value : {color.r, color.g, color.b, color.a}) {
        place = putSample(place, value, picture.bytesPerSample);
      }
    }
  }
  return picture;
}

// A file beside its target that takes the target's name when it is whole and goes when it is not.
class PendingFile {
 public:
  explicit PendingFile(const std::filesystem::path& target) : target_(target), path_(target) {
    path_ += ".part-" + std::to_string(std::random_device()());
  }
  ~PendingFile() {
    std::error_code ignored;
    if (!committed_) std::filesystem::remove(path_, ignored);
  }
  PendingFile(const PendingFile&) = delete;
  PendingFile& operator=(const PendingFile&) = delete;

  [[nodiscard]] const std::filesystem::path& path() const { return path_; }
  void commit() {
    const std::error_code error = replaceFile(path_, target_);
    if (error) throw PictureError("cannot write " + utf8FromPath(target_) + ": " + systemMessage(error, target_));
    committed_ = true;
  }

 private:
  std::filesystem::path target_;
  std::filesystem::path path_;
  bool committed_ = false;
};

}  // namespace

bool makeRoom(DecodedPicture& picture) {
  const std::size_t pixels = static_cast<std::size_t>(picture.width) * static_cast<std::size_t>(picture.height);
  if (pixels > kMaxPixels) return false;
  picture.samples.resize(pixels * 4 * static_cast<std::size_t>(picture.bytesPerSample));
  return true;
}

World readPicture(const std::filesystem::path& path, WorldFormat format) {
  const std::vector<unsigned char> bytes = readWhole(path);
  DecodedPicture picture;
  std::string problem;
  if (startsWith(bytes, {0x89, 'P', 'N', 'G'})) {
    problem = decodePng(bytes, picture);
  } else if (startsWith(bytes, {0xFF, 0xD8, 0xFF})) {
    problem = decodeJpeg(bytes, picture);
  } else {
    problem = "it is neither PNG nor JPEG";
  }
  if (!problem.empty()) throw PictureError("cannot read " + utf8FromPath(path) + ": " + problem);

  World world(format, picture.width, picture.height);
  for (int y = 0; y < picture.height; ++y) {
    const std::size_t row = static_cast<std::size_t>(y) * rowBytes(picture);
    if (has8Bits(world) && picture.bytesPerSample == 1) {
      world.setRow8(y, picture.samples.data() + row);
      continue;
    }
    std::size_t index = row / static_cast<std::size_t>(picture.bytesPerSample);
    for (int x = 0; x < picture.width; ++x, index += 4) {
      world.set(x, y,
                {sampleAt(picture, index), sampleAt(picture, index + 1), sampleAt(picture, index + 2),
                 sampleAt(picture, index + 3)});
    }
  }
  return world;
}

void writePng(const std::filesystem::path& path, const World& world) {
  if (world.width() < 1 || world.height() < 1) {
    throw PictureError("cannot write " + utf8FromPath(path) + ": the picture is empty");
  }
  const DecodedPicture picture = picture8or16(world);
  std::vector<unsigned char> bytes;
  const std::string problem = encodePng(picture, bytes);
  if (!problem.empty()) throw PictureError("cannot write " + utf8FromPath(path) + ": " + problem);

  PendingFile pending(path);
  {
    std::ofstream file(pending.path(), std::ios::binary);
    if (!file) throw PictureError("cannot write " + utf8FromPath(path) + ": no such folder or no permission");
    file.write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
    file.close();
    if (!file) throw PictureError("cannot write " + utf8FromPath(path) + ": writing failed");
  }
  pending.commit();
}

}  // namespace quiltor::standalone
