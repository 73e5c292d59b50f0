#pragma once

#include <CLI/CLI.hpp>

#include "standalone/cli/dialog_command.h"

namespace quiltor::standalone {

// The commands that open dialogs, with what may be typed after them.
CLI::App* addGallery(CLI::App& app, DialogCommandOptions& options);
CLI::App* addSettings(CLI::App& app, DialogCommandOptions& options);

}  // namespace quiltor::standalone
