#pragma once

#include <filesystem>

#include "base/utf8_path.h"
#include "platform/scratch_folder.h"

namespace quiltor {

// A scratch folder in which relative paths begin for as long as this lives.
class CurrentScratchFolder : public ScratchFolder {
 public:
  CurrentScratchFolder() { std::filesystem::current_path(pathFromUtf8(path())); }
  ~CurrentScratchFolder() { std::filesystem::current_path(before_); }
  CurrentScratchFolder(const CurrentScratchFolder&) = delete;
  CurrentScratchFolder& operator=(const CurrentScratchFolder&) = delete;

 private:
  const std::filesystem::path before_ = std::filesystem::current_path();
};

}  // namespace quiltor
