#include "standalone/cli/flat_sequence.h"

#include <cstddef>
#include <cstdint>

#include "standalone/cli/command_error.h"

namespace quiltor::standalone {
namespace {

constexpr std::size_t kFlatFlagOffset = 1024;
constexpr std::size_t kTextsOffset = 1312;
constexpr int kSlotCount = 32;
constexpr std::size_t kLengthBytes = 4;

[[noreturn]] void rejectLayout() {
  throw CommandFailure("--pattern: the effect's saved form has no text slots; expected that of the Quiltor module");
}

uint32_t lengthAt(std::span<const unsigned char> flat, std::size_t offset) {
  return static_cast<uint32_t>(flat[offset]) | static_cast<uint32_t>(flat[offset + 1]) << 8 |
         static_cast<uint32_t>(flat[offset + 2]) << 16 | static_cast<uint32_t>(flat[offset + 3]) << 24;
}

void appendLength(std::vector<unsigned char>& flat, std::size_t length) {
  for (std::size_t i = 0; i < kLengthBytes; ++i) flat.push_back(static_cast<unsigned char>(length >> (8 * i)));
}

}  // namespace

std::vector<unsigned char> withTextSlot(std::span<const unsigned char> flat, int slot, std::string_view text) {
  if (flat.size() < kTextsOffset || flat[kFlatFlagOffset] != 1) rejectLayout();
  std::vector<unsigned char> result(flat.begin(), flat.begin() + kTextsOffset);
  std::size_t offset = kTextsOffset;
  for (int i = 0; i < kSlotCount; ++i) {
    if (flat.size() - offset < kLengthBytes) rejectLayout();
    const std::size_t length = lengthAt(flat, offset);
    offset += kLengthBytes;
    if (flat.size() - offset < length) rejectLayout();
    const auto kept = flat.subspan(offset, length);
    offset += length;
    appendLength(result, i == slot ? text.size() : length);
    if (i == slot) {
      result.insert(result.end(), text.begin(), text.end());
    } else {
      result.insert(result.end(), kept.begin(), kept.end());
    }
  }
  return result;
}

std::string patternSelection(std::string_view path) {
  if (path.find('*') != std::string_view::npos) {
    throw CommandFailure(std::string(path) + ": a pattern's path is saved between stars; expected one without a star");
  }
  if (path.find('\\') != std::string_view::npos) {
    throw CommandFailure(std::string(path) +
                         ": the effect takes a backslash for a separator; expected a path without one");
  }
  // Between and after the stars stand the library's label and name, both empty.
  return std::string(path) + "*****" + "*****";
}

}  // namespace quiltor::standalone
