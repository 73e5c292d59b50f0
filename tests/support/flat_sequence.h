#pragma once

#include <array>
#include <cstdint>
#include <map>
#include <string>
#include <vector>

#include "host/sequence_data.h"
#include "standalone/host/instance.h"

namespace quiltor::testing_support {

// An instance's data as a project file holds it, spelled out byte by byte and apart from the module's own writer. Slots
// that are not named are empty.
std::vector<uint8_t> flatSequence(const std::map<size_t, std::string>& texts,
                                  const std::array<int32_t, 256>& visibility = {});

// The text slots of flat data.
std::vector<std::string> textsOf(const std::vector<uint8_t>& flat);

// What the user's pick of a picture outside every library looks like.
std::string selectionOf(const std::string& picturePath);

// A view of an instance's live record; its pointers lead to the instance's own parts and live as long as these.
SequenceData liveRecordOf(const standalone::Instance& instance);

}  // namespace quiltor::testing_support
