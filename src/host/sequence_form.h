#pragma once

#include <cstdint>
#include <span>

#include "host/sequence_data.h"

namespace quiltor {

enum class SequenceForm {
  Live,
  Flat,
  Damaged,  // too short, or with a flag or pointers that neither form has
};

// Values of SequenceData::flat.
inline constexpr uint8_t kLiveFlag = 0;
inline constexpr uint8_t kFlatFlag = 1;

// Tells the forms of an instance's data apart; no pointer in the data is followed.
SequenceForm sequenceFormOf(std::span<const uint8_t> bytes);

}  // namespace quiltor
