#include "formats/pattern_record.h"

#include <cstdio>

#include "base/checked_size.h"
#include "formats/pattern_plane.h"
#include "formats/picture_limit.h"
#include "formats/utf16_text.h"

namespace quiltor {
namespace {

enum ImageMode : uint32_t { kGrey = 1, kIndexed = 2, kRgb = 3, kCmyk = 4 };

constexpr const char* kCutOff = "the file ends inside the pattern";
// A length byte and 36 characters.
constexpr int64_t kUniqueIdBytes = 37;
constexpr size_t kColourTableBytes = 256 * 3;
// PackBits makes 128 bytes out of two.
constexpr int64_t kBestRatio = 64;

// Empty when there is none and when the file ends in it.
std::string readName(ByteReader& in) {
  uint32_t count = 0;
  if (!in.read(count)) return {};
  if (int64_t{count} * 2 > in.left()) {
    in.seek(in.size());
    return {};
  }
  std::vector<uint16_t> units(count);
  for (uint16_t& unit : units) {
    if (!in.read(unit)) return {};
  }
  return utf16ToUtf8(units);
}

// Takes the planes after the colour planes up, if they hold a transparency. Where it stands depends on how many arrays
// of the list are empty and so only four bytes long.
bool readTransparency(ByteReader& in, int64_t start, int64_t listEnd, PatternPlane& plane,
                      const PatternRectangle& rectangle, int64_t area) {
  if (start + PatternPlane::kHeaderBytes >= listEnd) return false;
  in.seek(start);
  if (readPlaneHeader(in, area, plane) != PlaneOutcome::Read || plane.rectangle != rectangle) return false;
  return readPlaneData(in, plane) == PlaneOutcome::Read && plane.isComplete();
}

// One record, in the order of its fields.
class RecordReader {
 public:
  RecordReader(ByteReader& in, PsPattern& pattern, AfterRecord& after) : in_(in), pattern_(pattern), after_(after) {}

  const char* read() {
    if (!readHead()) return kCutOff;
    if (mode_ < kGrey || mode_ > kCmyk) return skip("its image mode is not grey, indexed, RGB or CMYK");
    uint32_t channelCount = 0;
    if (!readRectangle(in_, rectangle_) || !in_.read(channelCount)) return kCutOff;
    const auto size = sizeOf(rectangle_);
    if (!size) return skip("its rectangle is impossible");
    const auto pixelBytes = checkedProduct({size->width, size->height, 4});
    if (!pixelBytes || *pixelBytes > kMostPixelBytes) return skip("it is larger than a picture may be");
    area_ = size->area();
    pattern_.width = static_cast<uint32_t>(size->width);
    pattern_.height = static_cast<uint32_t>(size->height);
    if (const char* problem = readColours()) return problem;
    readAlpha();
    in_.seek(listEnd_);
    return nullptr;
  }

 private:
  bool readHead() {
    uint32_t version = 0;
    uint16_t verticalSize = 0;
    uint16_t horizontalSize = 0;
    if (!in_.read(version) || !in_.read(mode_) || !in_.read(verticalSize) || !in_.read(horizontalSize)) return false;
    pattern_.name = readName(in_);
    std::printf("Name: %s\n", pattern_.name.c_str());
    // Deliberate: whatever the length byte says.
    in_.skip(kUniqueIdBytes);
    if (mode_ == kIndexed) {
      colourTable_.resize(kColourTableBytes);
      uint16_t colourCount = 0;
      if (!in_.read(colourTable_) || !in_.read(colourCount)) return false;
      in_.skip(2);
    }
    uint32_t listVersion = 0;
    uint32_t listLength = 0;
    if (!in_.read(listVersion) || !in_.read(listLength)) return false;
    listEnd_ = in_.position() + listLength;
    after_ = listEnd_ > in_.size() ? AfterRecord::Stop : AfterRecord::ReadOn;
    return true;
  }

  const char* skip(const char* reason) {
    in_.seek(listEnd_);
    return reason;
  }

  size_t channels() const { return mode_ == kGrey || mode_ == kIndexed ? 1 : 3; }

  const char* readColours() {
    PatternPlane plane;
    for (size_t channel = 0; channel < channels(); ++channel) {
      const int64_t start = in_.position();
      PlaneOutcome outcome = readPlaneHeader(in_, area_, plane);
      if (outcome == PlaneOutcome::Read) outcome = readPlaneData(in_, plane);
      // Deliberate: a depth that is not converted leaves the reader inside the list, and the next pattern is looked for
      // there.
      if (outcome == PlaneOutcome::CutOff || outcome == PlaneOutcome::WrongDepth) return reasonOf(outcome);
      if (outcome != PlaneOutcome::Read) return skip(reasonOf(outcome));
      if (channel == 0) {
        // Deliberate: a plane may be smaller than its pattern, whose memory the file has to justify all the same.
        if (area_ / kBestRatio > in_.position() - start) return skip("its planes hold too little for its size");
        pattern_.pixels.assign(static_cast<size_t>(area_) * 4, 0);
      }
      plane.copyTo(pattern_.pixels, channel);
    }
    finishColours();
    return nullptr;
  }

  void finishColours() {
    std::vector<uint8_t>& pixels = pattern_.pixels;
    for (size_t i = 0; i < pixels.size(); i += 4) {
      const uint8_t first = pixels[i];
      for (size_t channel = 0; channel < 3; ++channel) {
        if (mode_ == kGrey) pixels[i + channel] = first;
        if (mode_ == kIndexed) pixels[i + channel] = colourTable_[first * size_t{3} + channel];
      }
      pixels[i + 3] = 255;
    }
  }

  void readAlpha() {
    const int64_t start = in_.position();
    PatternPlane plane;
    const auto readAfter = [&](int64_t gap) {
      return readTransparency(in_, start + gap, listEnd_, plane, rectangle_, area_);
    };
    // A list has 24 arrays for colours and one for a user's mask before its transparency; those that are not used are
    // four bytes long. 22 of them stand between three colours and the transparency, 24 after a single colour.
    if (!readAfter(88) && (channels() > 1 || !readAfter(96))) return;
    plane.copyTo(pattern_.pixels, 3);
  }

  ByteReader& in_;
  PsPattern& pattern_;
  AfterRecord& after_;
  uint32_t mode_ = 0;
  std::vector<uint8_t> colourTable_;
  int64_t listEnd_ = 0;
  PatternRectangle rectangle_;
  int64_t area_ = 0;
};

}  // namespace

const char* readPatternRecord(ByteReader& in, PsPattern& pattern, AfterRecord& after) {
  return RecordReader(in, pattern, after).read();
}

}  // namespace quiltor
