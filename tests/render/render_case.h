#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "hostapi/params.h"
#include "standalone/host/services/host_options.h"
#include "standalone/host/services/world.h"

namespace quiltor::render_tests {

// Where the pattern comes from.
enum class PatternSource {
  Layer,        // another layer
  NoLayer,      // Source is Layer and none is chosen: the input layer stands in
  PngRgb,       // a PNG without alpha
  PngRgba,      // a PNG with alpha
  Jpeg,         // three channels in memory
  Placeholder,  // a file of a kind that is not read: black and white quarters, three channels
  MissingFile,  // nothing is loaded
};

// 8-bit pixels of a pattern file, channels interleaved.
struct FilePixels {
  int width = 0, height = 0, channels = 4;
  std::vector<uint8_t> bytes;
};

// One frame as the host sees it.
struct RenderCase {
  std::string name;
  standalone::World input{standalone::WorldFormat::Argb8, 1, 1};  // its format is the depth
  bool smart = false;

  PatternSource source = PatternSource::Layer;
  standalone::World patternLayer{standalone::WorldFormat::Argb8, 1, 1};
  FilePixels file;

  bool lock = false;
  standalone::LayerTransform transform;
  int tileMode = 2;   // from 1
  int blendMode = 1;  // from 1
  double opacity = 100, scale = 100;
  PF_Fixed offsetX = 0, offsetY = 0, rotation = 0;
  bool invert = false;
  PF_Pixel tint{};
  double tintOpacity = 0, blur = 0;
  PF_RationalScale downsampleX{1, 1}, downsampleY{1, 1};
};

[[nodiscard]] constexpr PF_Fixed fixed(int whole) { return whole * 65536; }
[[nodiscard]] bool isFile(PatternSource source);
// Everything but the pixels, in one line.
[[nodiscard]] std::string describe(const RenderCase& frame);

}  // namespace quiltor::render_tests
