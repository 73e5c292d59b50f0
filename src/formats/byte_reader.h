#pragma once

#include <array>
#include <concepts>
#include <cstdint>
#include <cstdio>
#include <span>
#include <type_traits>

namespace quiltor {

// Big-endian numbers and bytes out of an open file, which it neither owns nor closes. Positions count from where the
// file stands at the start and never leave the file. A read that runs into the end of the file fails and moves there.
class ByteReader {
 public:
  // Null reads like an empty file.
  explicit ByteReader(std::FILE* file);
  ByteReader(const ByteReader&) = delete;
  ByteReader& operator=(const ByteReader&) = delete;

  int64_t size() const { return size_; }
  int64_t position() const { return position_; }
  int64_t left() const { return size_ - position_; }
  // The sum of all ways back: how many bytes may have been read more than once.
  int64_t rewound() const { return rewound_; }

  // A position outside the file becomes its nearer end.
  void seek(int64_t position);
  void skip(int64_t count) { seek(position_ + count); }

  [[nodiscard]] bool read(std::span<uint8_t> bytes);

  [[nodiscard]] bool read(uint8_t& value) {
    if (position_ < bufferStart_ || position_ >= bufferEnd_) return read(std::span(&value, 1));
    value = buffer_[static_cast<size_t>(position_++ - bufferStart_)];
    return true;
  }

  template <std::integral Number>
  [[nodiscard]] bool read(Number& number) {
    std::array<uint8_t, sizeof(Number)> bytes;
    if (!read(std::span<uint8_t>(bytes))) return false;
    std::make_unsigned_t<Number> sum = 0;
    for (const uint8_t byte : bytes) sum = static_cast<decltype(sum)>(sum << 8 | byte);
    number = static_cast<Number>(sum);
    return true;
  }

 private:
  bool fill();

  std::FILE* file_;
  int64_t size_ = 0;
  int64_t position_ = 0;
  int64_t rewound_ = 0;
  // Where the file itself stands, which is behind the buffer.
  int64_t filePosition_ = 0;
  int64_t bufferStart_ = 0;
  int64_t bufferEnd_ = 0;
  std::array<uint8_t, 16384> buffer_;
};

}  // namespace quiltor
