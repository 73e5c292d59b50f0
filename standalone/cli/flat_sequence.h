#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace quiltor::standalone {

// The flat form in which the Quiltor module's instances are saved in projects: a fixed block, then the text slots, each
// a little-endian 32-bit length followed by its bytes.

// The bytes with the text of one slot replaced. Throws CommandFailure when they are not such a flat form.
[[nodiscard]] std::vector<unsigned char> withTextSlot(std::span<const unsigned char> flat, int slot,
                                                      std::string_view text);

// How the text of slot 0 names a picture that belongs to no library.
[[nodiscard]] std::string patternSelection(std::string_view path);

}  // namespace quiltor::standalone
