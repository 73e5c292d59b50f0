#pragma once

#include <cstdint>
#include <iterator>
#include <optional>
#include <string>
#include <vector>

namespace quiltor {

using Bytes = std::vector<uint8_t>;

// For tests: Photoshop pattern files, written from the description of the format. What a good file derives from its
// contents can be overridden to write a bad one.

struct TestRectangle {
  uint32_t top = 0;
  uint32_t left = 0;
  uint32_t bottom = 0;
  uint32_t right = 0;

  uint32_t width() const { return right - left; }
  uint32_t height() const { return bottom - top; }
};

// Samples in the file's depth and byte order, rows top to bottom.
struct TestPlane {
  Bytes samples = {};
  uint16_t depth = 8;
  // 1: rows of PackBits, as many for each row of the picture as a sample has bytes.
  uint8_t compression = 0;
  std::optional<TestRectangle> rectangle = {};
  // In place of what samples would be written as.
  std::optional<Bytes> data = {};
};

struct TestPattern {
  uint32_t mode = 3;
  TestRectangle rectangle = {};
  std::vector<TestPlane> planes = {};
  std::optional<TestPlane> transparency = {};
  std::u16string name = u"pattern";
  std::string uniqueId = "0d1f8a6e-52aa-11d9-9a8e-8f7d1c3b2a40";
  Bytes colourTable = {};
  uint32_t version = 1;
  // Between the colours and the transparency: those of the 24 colours that are not used, and the user's mask.
  std::optional<uint32_t> unusedArrays = {};
  std::optional<uint32_t> nameCount = {};
  std::optional<uint32_t> listLength = {};
  // At the end of the list, counted by its length.
  Bytes padding = {};
};

class BigEndianWriter {
 public:
  void number(uint64_t value, int byteCount) {
    for (int shift = (byteCount - 1) * 8; shift >= 0; shift -= 8) {
      bytes_.push_back(static_cast<uint8_t>(value >> shift & 0xFF));
    }
  }
  void bytes(const Bytes& bytes) { bytes_.insert(bytes_.end(), bytes.begin(), bytes.end()); }
  void text(const std::string& text) { bytes_.insert(bytes_.end(), text.begin(), text.end()); }
  void rectangle(const TestRectangle& rectangle) {
    number(rectangle.top, 4);
    number(rectangle.left, 4);
    number(rectangle.bottom, 4);
    number(rectangle.right, 4);
  }
  size_t size() const { return bytes_.size(); }
  Bytes take() { return std::move(bytes_); }

 private:
  Bytes bytes_;
};

// Runs of three and more equal bytes are repeated, everything else is literal.
inline Bytes packBits(const Bytes& row) {
  Bytes packed;
  const auto runAt = [&](size_t at) {
    size_t end = at;
    while (end < row.size() && end - at < 128 && row[end] == row[at]) ++end;
    return end - at;
  };
  for (size_t at = 0; at < row.size();) {
    if (const size_t run = runAt(at); run >= 3) {
      packed.push_back(static_cast<uint8_t>(257 - run));
      packed.push_back(row[at]);
      at += run;
      continue;
    }
    size_t end = at;
    while (end < row.size() && end - at < 128 && runAt(end) < 3) ++end;
    packed.push_back(static_cast<uint8_t>(end - at - 1));
    packed.insert(packed.end(), row.begin() + static_cast<std::ptrdiff_t>(at),
                  row.begin() + static_cast<std::ptrdiff_t>(end));
    at = end;
  }
  return packed;
}

// The byte counts of all rows, then the rows.
inline Bytes packRows(const Bytes& samples, size_t rowCount) {
  BigEndianWriter counts;
  BigEndianWriter rows;
  const auto rowBytes = static_cast<std::ptrdiff_t>(rowCount ? samples.size() / rowCount : 0);
  for (auto row = samples.begin(); rowCount > 0; --rowCount, row += rowBytes) {
    const Bytes packed = packBits(Bytes(row, row + rowBytes));
    counts.number(packed.size(), 2);
    rows.bytes(packed);
  }
  counts.bytes(rows.take());
  return counts.take();
}

inline Bytes planeBytes(const TestPlane& plane, const TestRectangle& patternRectangle) {
  const TestRectangle rectangle = plane.rectangle.value_or(patternRectangle);
  Bytes data = plane.compression == 0 ? plane.samples : Bytes();
  if (plane.data) {
    data = *plane.data;
  } else if (plane.compression != 0) {
    data = packRows(plane.samples, rectangle.height() * (plane.depth / 8u));
  }
  BigEndianWriter writer;
  writer.number(1, 4);
  writer.number(4 + 16 + 2 + 1 + data.size(), 4);
  writer.number(plane.depth, 4);
  writer.rectangle(rectangle);
  writer.number(plane.depth, 2);
  writer.number(plane.compression, 1);
  writer.bytes(data);
  return writer.take();
}

inline Bytes listBytes(const TestPattern& pattern) {
  BigEndianWriter list;
  list.rectangle(pattern.rectangle);
  list.number(24, 4);
  for (const TestPlane& plane : pattern.planes) list.bytes(planeBytes(plane, pattern.rectangle));
  const auto unused = static_cast<uint32_t>(24 - pattern.planes.size() + 1);
  for (uint32_t count = pattern.unusedArrays.value_or(unused); count > 0; --count) list.number(0, 4);
  if (pattern.transparency) {
    list.bytes(planeBytes(*pattern.transparency, pattern.rectangle));
  } else {
    list.number(0, 4);
  }
  list.bytes(pattern.padding);
  return list.take();
}

inline Bytes patternBytes(const TestPattern& pattern) {
  BigEndianWriter writer;
  writer.number(pattern.version, 4);
  writer.number(pattern.mode, 4);
  writer.number(pattern.rectangle.height() & 0xFFFF, 2);
  writer.number(pattern.rectangle.width() & 0xFFFF, 2);
  // A name ends with a zero, which its count includes.
  writer.number(pattern.nameCount.value_or(pattern.name.empty() ? 0 : static_cast<uint32_t>(pattern.name.size() + 1)),
                4);
  for (const char16_t unit : pattern.name) writer.number(unit, 2);
  if (!pattern.name.empty()) writer.number(0, 2);
  writer.number(pattern.uniqueId.size(), 1);
  writer.text(pattern.uniqueId);
  if (pattern.mode == 2) {
    writer.bytes(pattern.colourTable);
    writer.number(256, 2);
    writer.number(0xFFFF, 2);
  }
  const Bytes list = listBytes(pattern);
  writer.number(3, 4);
  writer.number(pattern.listLength.value_or(static_cast<uint32_t>(list.size())), 4);
  writer.bytes(list);
  return writer.take();
}

struct TestPatternFile {
  std::vector<TestPattern> patterns = {};
  std::string signature = "8BPT";
  uint16_t version = 1;
  std::optional<uint32_t> count = {};

  Bytes bytes() const {
    BigEndianWriter writer;
    writer.text(signature);
    writer.number(version, 2);
    writer.number(count.value_or(static_cast<uint32_t>(patterns.size())), 4);
    for (const TestPattern& pattern : patterns) writer.bytes(patternBytes(pattern));
    return writer.take();
  }
};

}  // namespace quiltor
