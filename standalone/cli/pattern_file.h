#pragma once

#include <filesystem>

namespace quiltor::standalone {

// Makes sure that an effect which is only told the path will find a picture there: effects choose their decoder by the
// end of the name and stay silent when it fails. Throws PictureError or CommandFailure.
void checkPatternFile(const std::filesystem::path& path);

}  // namespace quiltor::standalone
