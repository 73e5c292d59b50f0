#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <span>
#include <string>

#include "host/sequence_data.h"

namespace quiltor {

// An instance's state without its pictures: what is saved with a project. The flat form is 1312 bytes that begin like
// the live record (visibility, then the flag, then zeros), followed by the text slots in order, each as a little-endian
// 32-bit length and that many bytes.
struct SequenceState {
  std::array<int32_t, 256> visibility{};
  std::array<std::string, kTextSlots> text;
};

// The size of the flat form of a live record.
size_t flatSize(const SequenceData& live);

// Writes the flat form of a live record; flat has exactly flatSize(live) bytes.
void writeFlat(const SequenceData& live, std::span<uint8_t> flat);

// Reads data in the flat form. Nothing when a text runs past the end of the bytes. Bytes after the last text are
// ignored, because a host may hand out more than it was given.
std::optional<SequenceState> readFlat(std::span<const uint8_t> flat);

}  // namespace quiltor
