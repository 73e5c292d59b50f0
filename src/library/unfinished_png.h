#pragma once

#include <cstdint>
#include <string>

#include "formats/pattern_image.h"

namespace quiltor {

// A PNG file that gets its name only once it is whole. Until then it stands beside it under a name that no listing of
// the library takes, so that whatever ends the process leaves nothing that looks like a picture.
class UnfinishedPng {
 public:
  explicit UnfinishedPng(std::string path);
  ~UnfinishedPng();
  UnfinishedPng(UnfinishedPng&& other) noexcept;
  UnfinishedPng& operator=(UnfinishedPng&&) = delete;

  const std::string& path() const { return path_; }

  // What SavePngImage returns.
  [[nodiscard]] int32_t write(const PatternImage& image) noexcept;

  // Gives the file its name: 0, or -1, as for a file that cannot be created, when something else has that name.
  [[nodiscard]] int32_t finish() noexcept;

 private:
  std::string path_;
  std::string temporary_;
};

// Deletes the unfinished files in a folder whose processes have ended; another run deletes what this one cannot.
void removeUnfinished(const std::string& folder) noexcept;

}  // namespace quiltor
