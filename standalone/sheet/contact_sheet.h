#pragma once

#include <string>
#include <vector>

#include "formats/pattern_image.h"

namespace quiltor::standalone {

struct SheetEntry {
  std::string name;
  PatternImage thumbnail;  // of 50 by 50 pixels; one that is not whole is shown as a missing picture
};

struct ContactSheet {
  std::string title;
  std::string remark;  // below the title
  std::vector<SheetEntry> entries;
};

// A sheet takes no more, so that it stays a picture that programs open.
inline constexpr std::size_t kMostSheetEntries = 2000;

// The thumbnails row by row with their names, three channels. Throws std::bad_alloc.
[[nodiscard]] PatternImage drawContactSheet(const ContactSheet& sheet);

}  // namespace quiltor::standalone
