#pragma once

#include <filesystem>
#include <optional>
#include <ostream>
#include <string>
#include <utility>
#include <vector>

#include "standalone/cli/session.h"

namespace quiltor::standalone {

enum class RenderPath { Automatic, Classic, Smart };

struct RenderOptions {
  std::filesystem::path input;
  std::filesystem::path output;
  std::string pattern;                 // as typed; empty: none
  std::filesystem::path patternLayer;  // empty: none
  std::filesystem::path masks;         // empty: none
  std::vector<std::string> assignments;
  WorldFormat format = WorldFormat::Argb8;
  int downsample = 1;
  RenderPath path = RenderPath::Automatic;  // smart where the effect supports it

  // The layer in its composition. Without position and anchor its centre lies at the composition's centre, and the
  // composition is as large as the layer.
  std::optional<std::pair<double, double>> position, anchor, scale;
  double rotation = 0;
};

// Renders one frame and writes it. Throws UsageError, CommandFailure, ModuleError or PictureError; the output file is
// written only when everything before went well.
void runRender(const SessionOptions& session, const RenderOptions& options, std::ostream& err);

}  // namespace quiltor::standalone
