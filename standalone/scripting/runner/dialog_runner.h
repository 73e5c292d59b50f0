#pragma once

#include <filesystem>
#include <optional>
#include <ostream>
#include <string>
#include <vector>

#include "standalone/host/services/script_runner.h"

namespace quiltor::standalone {

// Who sits before the dialogs of scripts.
struct DialogOptions {
  // The steps of an automation in the place of a person; standalone/scripting/automation/README.md has the language.
  std::optional<std::string> steps = std::nullopt;
  std::string stepsName = "steps";  // stands before the line of a step that fails
  // Saves a picture of the first dialog as it opens, PNG. Without steps the dialog is then closed.
  std::string screenshot = {};
  double scale = 1;  // of the screen, such as 1.25; per process, the first runner's counts
  // Where the dialogs' library lies when it is not beside the program.
  std::filesystem::path folder = {};
  std::ostream* out = nullptr;  // what steps print, and what scripts tell or ask in the place of boxes; not null
};

// Runs scripts and their dialogs, for HostOptions::runScript:
//
//   const auto dialogs = loadDialogRunner({.steps = "click \"OK\"", .out = &std::cout});
//   options.runScript = [&](const std::string& script) { return dialogs->run(script); };
//   ... clicks ...
//   EXPECT_THAT(dialogs->complaints(), IsEmpty());
//
// Belongs to the thread that made the first one in the process.
class DialogRunner {
 public:
  virtual ~DialogRunner() = default;

  // Runs a script until its dialogs are closed.
  virtual ScriptOutcome run(const std::string& script) = 0;

  // What was wrong, one line each: errors in scripts, those in handlers too, after which the host goes on, and the
  // first step that could not be done or was never reached.
  [[nodiscard]] virtual std::vector<std::string> complaints() const = 0;
};

// What the library of the dialogs exports.
inline constexpr const char* kDialogRunnerSymbol = "quiltorMakeDialogRunner";
using MakeDialogRunner = DialogRunner* (*)(const DialogOptions&);

}  // namespace quiltor::standalone
