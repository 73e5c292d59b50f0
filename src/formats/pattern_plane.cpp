#include "formats/pattern_plane.h"

#include <limits>

#include "base/checked_size.h"

namespace quiltor {
namespace {

constexpr const char* kCutOff = "the file ends inside a plane";
constexpr const char* kTooMuch = "a compressed plane holds more than its rectangle";

// Runs of PackBits. The memory grows with what is decoded, so that a large rectangle alone costs nothing.
class RunLengthDecoder {
 public:
  RunLengthDecoder(ByteReader& in, PatternPlane& plane) : in_(in), plane_(plane) {}

  const char* decode(int64_t rowCount) {
    if (rowCount * 2 > in_.left()) {
      in_.seek(in_.size());
      return kCutOff;
    }
    std::vector<uint16_t> rowBytes(static_cast<size_t>(rowCount));
    for (uint16_t& count : rowBytes) {
      if (!in_.read(count)) return kCutOff;
    }
    for (const uint16_t count : rowBytes) {
      if (const char* problem = decodeRow(count)) return problem;
    }
    return nullptr;
  }

 private:
  // Deliberate: a run may use more bytes than its row still has; the next row begins after it.
  const char* decodeRow(int64_t bytesLeft) {
    while (bytesLeft > 0) {
      uint8_t header = 0;
      if (!in_.read(header)) return kCutOff;
      --bytesLeft;
      const bool isRepeat = header > 128;
      if (header == 128) continue;
      const size_t length = isRepeat ? 257u - header : header + 1u;
      const size_t used = isRepeat ? 1 : length;
      const size_t end = plane_.bytes.size();
      if (static_cast<int64_t>(length) > plane_.byteCount - static_cast<int64_t>(end)) return kTooMuch;
      uint8_t value = 0;
      if (isRepeat && !in_.read(value)) return kCutOff;
      plane_.bytes.resize(end + length, value);
      if (!isRepeat && !in_.read(std::span(plane_.bytes).subspan(end))) return kCutOff;
      bytesLeft -= static_cast<int64_t>(used);
    }
    return nullptr;
  }

  ByteReader& in_;
  PatternPlane& plane_;
};

}  // namespace

bool readRectangle(ByteReader& in, PatternRectangle& rectangle) {
  return in.read(rectangle.top) && in.read(rectangle.left) && in.read(rectangle.bottom) && in.read(rectangle.right);
}

std::optional<PatternSize> sizeOf(const PatternRectangle& rectangle) {
  const PatternSize size = {.width = int64_t{rectangle.right} - rectangle.left,
                            .height = int64_t{rectangle.bottom} - rectangle.top};
  constexpr int64_t kLargestSide = std::numeric_limits<int32_t>::max();
  if (size.width < 0 || size.height < 0 || size.width > kLargestSide || size.height > kLargestSide) return std::nullopt;
  return size;
}

const char* readPlaneHeader(ByteReader& in, int64_t mostSamples, PatternPlane& plane) {
  uint32_t written = 0;
  uint32_t length = 0;
  uint32_t depth = 0;
  // The first three are not acted upon: the data's own depth follows, and its size follows from the rectangle.
  if (!in.read(written) || !in.read(length) || !in.read(depth) || !readRectangle(in, plane.rectangle) ||
      !in.read(plane.depth) || !in.read(plane.compression)) {
    return kCutOff;
  }
  if (plane.depth != 8 && plane.depth != 16) return "a plane has a depth other than 8 and 16 bits";
  const auto size = sizeOf(plane.rectangle);
  if (!size) return "a plane has an impossible rectangle";
  if (size->area() > mostSamples) return "a plane is larger than its pattern";
  plane.byteCount = size->area() * static_cast<int64_t>(plane.bytesPerSample());
  return nullptr;
}

const char* readPlaneData(ByteReader& in, PatternPlane& plane) {
  plane.bytes.clear();
  if (plane.compression != 0) {
    const int64_t rows = int64_t{plane.rectangle.bottom} - plane.rectangle.top;
    return RunLengthDecoder(in, plane).decode(rows * static_cast<int64_t>(plane.bytesPerSample()));
  }
  if (plane.byteCount > in.left()) {
    in.seek(in.size());
    return kCutOff;
  }
  plane.bytes.resize(static_cast<size_t>(plane.byteCount));
  return in.read(plane.bytes) ? nullptr : kCutOff;
}

}  // namespace quiltor
