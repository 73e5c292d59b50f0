#pragma once

#include <filesystem>
#include <optional>
#include <string>

#include "standalone/cli/temporary_folder.h"

namespace quiltor::standalone {

// The picture that an effect is told to load, from what was typed: a PNG or JPEG file, or a pattern out of a Photoshop
// pattern file (see pattern_choice.h), which becomes a picture until the end of the scope. An effect which is only told
// the path will find a picture there: effects choose their decoder by the end of the name and stay silent when it
// fails. Throws PictureError, UsageError or CommandFailure.
class PatternFile {
 public:
  explicit PatternFile(const std::string& typed);

  [[nodiscard]] const std::filesystem::path& path() const { return path_; }

 private:
  std::optional<TemporaryFolder> folder_;
  std::filesystem::path path_;
};

}  // namespace quiltor::standalone
