#include "standalone/cli/dialog_options.h"

#include <string>

#include "standalone/cli/command_error.h"
#include "standalone/cli/number_text.h"
#include "standalone/cli/typed_path.h"

namespace quiltor::standalone {
namespace {

constexpr double kSmallestScale = 50, kLargestScale = 400;

double requireScreenScale(std::string text) {
  if (text.ends_with('%')) text.pop_back();
  const auto percent = parseNumber(text);
  if (percent && *percent >= kSmallestScale && *percent <= kLargestScale) return *percent / 100;
  throw UsageError("--scale: \"" + text + "\": expected percent, from 50 to 400");
}

void addDialogOptions(CLI::App& command, DialogCommandOptions& options) {
  addPath(command, "--headless", options.headless,
          "Do the steps in a file in the place of a person, without a screen; "
          "standalone/scripting/automation/README.md describes them")
      ->type_name("FILE");
  addPath(command, "--screenshot", options.screenshot,
          "Save a picture of the dialog as it opens: PNG; without --headless the dialog is then closed")
      ->type_name("FILE");
  command
      .add_option_function<std::string>(
          "--scale", [&options](const std::string& text) { options.scale = requireScreenScale(text); },
          "The scale of the screen, such as 125%")
      ->type_name("PERCENT");
}

}  // namespace

CLI::App* addGallery(CLI::App& app, DialogCommandOptions& options) {
  CLI::App* const command = app.add_subcommand("gallery", "Pick a pattern, as a click on the pattern control does");
  addDialogOptions(*command, options);
  addPath(*command, "--project", options.project,
          "Start with the pattern that the file keeps, and keep the one that was picked")
      ->type_name("FILE");
  addPath(*command, "--render", options.input, "Render this layer with the pick: PNG or JPEG")->type_name("FILE");
  addPath(*command, "-o,--output", options.output, "The picture to write: PNG")->type_name("FILE");
  command->footer("Example:\n  quiltor gallery --render samples/layer.png -o out.png");
  return command;
}

CLI::App* addSettings(CLI::App& app, DialogCommandOptions& options) {
  CLI::App* const command = app.add_subcommand("settings", "Set the folders of the pattern library");
  addDialogOptions(*command, options);
  command->footer("Example:\n  quiltor settings");
  return command;
}

}  // namespace quiltor::standalone
