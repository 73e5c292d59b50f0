#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "formats/byte_reader.h"

namespace quiltor {

// As in the file: pixels, the lower and right edges excluded.
struct PatternRectangle {
  int32_t top = 0;
  int32_t left = 0;
  int32_t bottom = 0;
  int32_t right = 0;

  bool operator==(const PatternRectangle&) const = default;
};

struct PatternSize {
  int64_t width = 0;
  int64_t height = 0;

  // Neither side exceeds 31 bits, so that the product fits.
  int64_t area() const { return width * height; }
};

[[nodiscard]] bool readRectangle(ByteReader& in, PatternRectangle& rectangle);

// Nothing for an edge on the wrong side of its opposite and for a side of more than 31 bits.
std::optional<PatternSize> sizeOf(const PatternRectangle& rectangle);

// One colour or the transparency of a pattern: what stands before its data, and the data in the file's own depth.
struct PatternPlane {
  PatternRectangle rectangle;
  uint16_t depth = 0;
  uint8_t compression = 0;
  // How many bytes the rectangle takes at the depth. A compressed plane may decode to fewer.
  int64_t byteCount = 0;
  std::vector<uint8_t> bytes;

  static constexpr int64_t kHeaderBytes = 7 * 4 + 2 + 1;

  bool isComplete() const { return static_cast<int64_t>(bytes.size()) == byteCount; }
  size_t bytesPerSample() const { return depth / 8u; }
  // The high byte of every sample that is there, into one channel of pixels of four.
  void copyTo(std::vector<uint8_t>& pixels, size_t channel) const;
};

enum class PlaneOutcome { Read, CutOff, WrongDepth, ImpossibleRectangle, LargerThanPattern, HoldsTooMuch };

// The reader is left where the reading stopped. A plane of more than mostSamples is refused before its data.
[[nodiscard]] PlaneOutcome readPlaneHeader(ByteReader& in, int64_t mostSamples, PatternPlane& plane);
[[nodiscard]] PlaneOutcome readPlaneData(ByteReader& in, PatternPlane& plane);

// For the user; null for a plane that was read.
const char* reasonOf(PlaneOutcome outcome);

}  // namespace quiltor
