#pragma once

#include <filesystem>

#include "standalone/cli/console.h"
#include "standalone/cli/session.h"

namespace quiltor::standalone {

struct DialogCommandOptions {
  std::filesystem::path headless;    // the steps of an automation; empty: a person
  std::filesystem::path screenshot;  // empty: none
  double scale = 1;
  // What a project keeps of the instance: read before, when it is there, and written after a pick. Empty: none.
  std::filesystem::path project;
  // The layer to render with the pick, and where to. Empty: none.
  std::filesystem::path input, output;
};

// Opens the dialog that a click on the pattern control opens, which is that of the settings as long as there is no list
// of libraries, and prints what was picked. Conversions that it has started are finished first. Both throw UsageError,
// CommandFailure, ModuleError, PictureError or NoDialogs.
void runGallery(const SessionOptions& session, const DialogCommandOptions& options, const Console& console);

// Opens the dialog of the effect's "Settings" button and prints what was saved.
void runSettings(const SessionOptions& session, const DialogCommandOptions& options, const Console& console);

}  // namespace quiltor::standalone
