#pragma once

#include <cstddef>
#include <string>

#include "host/sequence_data.h"

namespace quiltor {

// A copy that a text slot can own.
char* newText(const std::string& text);

// Puts another text into a slot of a live record. What is there stays when there is no memory for the other.
void storeText(SequenceData& live, size_t slot, const std::string& text);

}  // namespace quiltor
