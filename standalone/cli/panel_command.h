#pragma once

#include <filesystem>
#include <ostream>
#include <string>
#include <vector>

#include "standalone/cli/session.h"

namespace quiltor::standalone {

struct PanelOptions {
  std::vector<std::string> assignments;  // NAME=VALUE, made in order as a user would
  std::string pattern;                   // what the control shows; empty: the effect's own picture
  std::filesystem::path drawing;         // a picture of the drawn control; empty: none
};

// Prints how the host's panel shows each parameter once the values are set: shown, greyed or hidden. Draws the effect's
// control when a drawing is asked for.
void runPanel(const SessionOptions& session, const PanelOptions& options, std::ostream& out, std::ostream& err);

}  // namespace quiltor::standalone
