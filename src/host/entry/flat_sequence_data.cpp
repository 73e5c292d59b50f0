#include "host/entry/flat_sequence_data.h"

#include <algorithm>
#include <cstring>

#include "host/sequence_form.h"

namespace quiltor {
namespace {

constexpr size_t kLengthBytes = 4;

void writeLength(uint8_t* to, size_t length) {
  for (size_t byte = 0; byte < kLengthBytes; ++byte) to[byte] = static_cast<uint8_t>(length >> (8 * byte));
}

size_t readLength(const uint8_t* from) {
  size_t length = 0;
  for (size_t byte = 0; byte < kLengthBytes; ++byte) length |= static_cast<size_t>(from[byte]) << (8 * byte);
  return length;
}

}  // namespace

size_t flatSize(const SequenceData& live) {
  size_t size = sizeof(SequenceData);
  for (const char* text : live.text) size += kLengthBytes + std::strlen(text);
  return size;
}

void writeFlat(const SequenceData& live, std::span<uint8_t> flat) {
  std::fill_n(flat.begin(), sizeof(SequenceData), uint8_t{0});
  std::memcpy(flat.data(), live.visibility, sizeof live.visibility);
  flat[offsetof(SequenceData, flat)] = kFlatFlag;
  uint8_t* to = flat.data() + sizeof(SequenceData);
  for (const char* text : live.text) {
    const size_t length = std::strlen(text);
    writeLength(to, length);
    to = std::copy_n(text, length, to + kLengthBytes);
  }
}

std::optional<SequenceState> readFlat(std::span<const uint8_t> flat) {
  if (flat.size() < sizeof(SequenceData)) return std::nullopt;
  SequenceState state;
  std::memcpy(state.visibility.data(), flat.data(), sizeof state.visibility);
  std::span<const uint8_t> rest = flat.subspan(sizeof(SequenceData));
  for (std::string& text : state.text) {
    if (rest.size() < kLengthBytes) return std::nullopt;
    const size_t length = readLength(rest.data());
    rest = rest.subspan(kLengthBytes);
    if (rest.size() < length) return std::nullopt;
    text.assign(rest.begin(), rest.begin() + static_cast<std::ptrdiff_t>(length));
    rest = rest.subspan(length);
  }
  return state;
}

}  // namespace quiltor
