#pragma once

#include <string>

#include "tests/render/render_case.h"

namespace quiltor::render_tests {

// Writes RGB pixels and gives back what a reader with the library's defaults gets from the file, since the format does
// not keep them exactly. Throws std::runtime_error.
FilePixels writeJpeg(const std::string& path, const FilePixels& pixels);

}  // namespace quiltor::render_tests
