#include "formats/pattern_plane.h"

#include <limits>

#include "base/checked_size.h"

namespace quiltor {
namespace {

// Runs of PackBits. The memory grows with what is decoded, so that a large rectangle alone costs nothing.
class RunLengthDecoder {
 public:
  RunLengthDecoder(ByteReader& in, PatternPlane& plane) : in_(in), plane_(plane) {}

  PlaneOutcome decode(int64_t rowCount) {
    if (rowCount * 2 > in_.left()) {
      in_.seek(in_.size());
      return PlaneOutcome::CutOff;
    }
    std::vector<uint16_t> rowBytes(static_cast<size_t>(rowCount));
    for (uint16_t& count : rowBytes) {
      if (!in_.read(count)) return PlaneOutcome::CutOff;
    }
    for (const uint16_t count : rowBytes) {
      if (const auto outcome = decodeRow(count); outcome != PlaneOutcome::Read) return outcome;
    }
    return PlaneOutcome::Read;
  }

 private:
  // Deliberate: a run may use more bytes than its row still has; the next row begins after it.
  PlaneOutcome decodeRow(int64_t bytesLeft) {
    while (bytesLeft > 0) {
      uint8_t header = 0;
      if (!in_.read(header)) return PlaneOutcome::CutOff;
      --bytesLeft;
      const bool isRepeat = header > 128;
      if (header == 128) continue;
      const size_t length = isRepeat ? 257u - header : header + 1u;
      const size_t used = isRepeat ? 1 : length;
      const size_t end = plane_.bytes.size();
      if (static_cast<int64_t>(length) > plane_.byteCount - static_cast<int64_t>(end))
        return PlaneOutcome::HoldsTooMuch;
      uint8_t value = 0;
      if (isRepeat && !in_.read(value)) return PlaneOutcome::CutOff;
      plane_.bytes.resize(end + length, value);
      if (!isRepeat && !in_.read(std::span(plane_.bytes).subspan(end))) return PlaneOutcome::CutOff;
      bytesLeft -= static_cast<int64_t>(used);
    }
    return PlaneOutcome::Read;
  }

  ByteReader& in_;
  PatternPlane& plane_;
};

}  // namespace

void PatternPlane::copyTo(std::vector<uint8_t>& pixels, size_t channel) const {
  for (size_t from = 0, to = channel; from < bytes.size(); from += bytesPerSample(), to += 4) pixels[to] = bytes[from];
}

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

PlaneOutcome readPlaneHeader(ByteReader& in, int64_t mostSamples, PatternPlane& plane) {
  uint32_t written = 0;
  uint32_t length = 0;
  uint32_t depth = 0;
  // The first three are not acted upon: the data's own depth follows, and its size follows from the rectangle.
  if (!in.read(written) || !in.read(length) || !in.read(depth) || !readRectangle(in, plane.rectangle) ||
      !in.read(plane.depth) || !in.read(plane.compression)) {
    return PlaneOutcome::CutOff;
  }
  if (plane.depth != 8 && plane.depth != 16) return PlaneOutcome::WrongDepth;
  const auto size = sizeOf(plane.rectangle);
  if (!size) return PlaneOutcome::ImpossibleRectangle;
  if (size->area() > mostSamples) return PlaneOutcome::LargerThanPattern;
  plane.byteCount = size->area() * static_cast<int64_t>(plane.bytesPerSample());
  return PlaneOutcome::Read;
}

PlaneOutcome readPlaneData(ByteReader& in, PatternPlane& plane) {
  plane.bytes.clear();
  if (plane.compression != 0) {
    const int64_t rows = int64_t{plane.rectangle.bottom} - plane.rectangle.top;
    return RunLengthDecoder(in, plane).decode(rows * static_cast<int64_t>(plane.bytesPerSample()));
  }
  if (plane.byteCount > in.left()) {
    in.seek(in.size());
    return PlaneOutcome::CutOff;
  }
  plane.bytes.resize(static_cast<size_t>(plane.byteCount));
  return in.read(plane.bytes) ? PlaneOutcome::Read : PlaneOutcome::CutOff;
}

const char* reasonOf(PlaneOutcome outcome) {
  switch (outcome) {
    case PlaneOutcome::Read:
      return nullptr;
    case PlaneOutcome::CutOff:
      return "the file ends inside a plane";
    case PlaneOutcome::WrongDepth:
      return "a plane has a depth other than 8 and 16 bits";
    case PlaneOutcome::ImpossibleRectangle:
      return "a plane has an impossible rectangle";
    case PlaneOutcome::LargerThanPattern:
      return "a plane is larger than its pattern";
    case PlaneOutcome::HoldsTooMuch:
      return "a compressed plane holds more than its rectangle";
  }
  return nullptr;
}

}  // namespace quiltor
