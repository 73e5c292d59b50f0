#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "formats/pattern_image.h"

namespace quiltor {

inline constexpr int kTextSlots = 32;

// The text slot that carries the stored pattern selection: image path, library label and library name, separated by
// "*****". It is the only thing about the pick that travels between the copies of an instance that a host keeps.
inline constexpr int kSelectionSlot = 0;

inline constexpr int kPreviewSize = 50;                                   // pixels, both ways
inline constexpr size_t kPreviewBytes = kPreviewSize * kPreviewSize * 4;  // blue, green, red, alpha

// An effect instance's live data, inside a host handle. The pointers own what they point to; they are built and
// destroyed by the sequence handlers alone. Its flat form begins with the same bytes and is told apart by the flag.
struct SequenceData {
  int32_t visibility[256];
  uint8_t flat;
  char* text[kTextSlots];
  uint8_t patternLoaded;
  PatternImage* patternImage;
  std::vector<uint8_t>* previewImage;
};

static_assert(sizeof(void*) == 8);
static_assert(offsetof(SequenceData, visibility) == 0);
static_assert(offsetof(SequenceData, flat) == 1024);
static_assert(offsetof(SequenceData, text) == 1032);
static_assert(offsetof(SequenceData, patternLoaded) == 1288);
static_assert(offsetof(SequenceData, patternImage) == 1296);
static_assert(offsetof(SequenceData, previewImage) == 1304);
static_assert(sizeof(SequenceData) == 1312);

}  // namespace quiltor
