#include "formats/byte_reader.h"

#include <algorithm>
#include <cstring>
#include <limits>

#include "platform/file.h"

namespace quiltor {
namespace {

// The C library's offsets have 32 bits on some systems, where files may be larger than that.
bool moveFile(std::FILE* file, int64_t distance) {
  while (distance != 0) {
    const auto step = static_cast<long>(
        std::clamp<int64_t>(distance, -std::numeric_limits<int32_t>::max(), std::numeric_limits<int32_t>::max()));
    if (std::fseek(file, step, SEEK_CUR) != 0) return false;
    distance -= step;
  }
  return true;
}

}  // namespace

ByteReader::ByteReader(std::FILE* file) : file_(file) {
  if (file_) size_ = std::max<int64_t>(0, fileSize(file_) - std::max<int64_t>(0, std::ftell(file_)));
}

void ByteReader::seek(int64_t position) {
  position = std::clamp<int64_t>(position, 0, size_);
  rewound_ += std::max<int64_t>(0, position_ - position);
  position_ = position;
}

bool ByteReader::fill() {
  const auto wanted = static_cast<size_t>(std::min<int64_t>(std::ssize(buffer_), left()));
  size_t got = 0;
  if (moveFile(file_, position_ - filePosition_)) got = std::fread(buffer_.data(), 1, wanted, file_);
  bufferStart_ = position_;
  bufferEnd_ = filePosition_ = position_ + static_cast<int64_t>(got);
  // A file that became shorter meanwhile, or that cannot be read on, ends here.
  if (got == 0) size_ = position_;
  return got != 0;
}

bool ByteReader::read(std::span<uint8_t> bytes) {
  if (std::ssize(bytes) > left()) {
    position_ = size_;
    return false;
  }
  while (!bytes.empty()) {
    if ((position_ < bufferStart_ || position_ >= bufferEnd_) && !fill()) return false;
    const auto count = std::min(bytes.size(), static_cast<size_t>(bufferEnd_ - position_));
    std::memcpy(bytes.data(), buffer_.data() + (position_ - bufferStart_), count);
    position_ += static_cast<int64_t>(count);
    bytes = bytes.subspan(count);
  }
  return true;
}

}  // namespace quiltor
