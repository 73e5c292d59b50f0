#include "host/sequence_form.h"

#include <algorithm>
#include <cstring>
#include <iterator>

namespace quiltor {
namespace {

// A live record always has all of its parts: whatever lacks one is not a record of ours.
bool isWhole(const SequenceData& live) {
  return live.patternLoaded == 1 && live.patternImage && live.previewImage &&
         std::all_of(std::begin(live.text), std::end(live.text), [](const char* text) { return text != nullptr; });
}

}  // namespace

SequenceForm sequenceFormOf(std::span<const uint8_t> bytes) {
  if (bytes.size() < sizeof(SequenceData)) return SequenceForm::Damaged;
  const uint8_t flag = bytes[offsetof(SequenceData, flat)];
  if (flag == kFlatFlag) return SequenceForm::Flat;
  SequenceData record;
  std::memcpy(&record, bytes.data(), sizeof record);
  return flag == kLiveFlag && isWhole(record) ? SequenceForm::Live : SequenceForm::Damaged;
}

}  // namespace quiltor
