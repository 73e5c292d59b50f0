#include "standalone/cli/dialog_command.h"

#include <cstddef>
#include <exception>
#include <functional>
#include <memory>
#include <optional>
#include <sstream>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "base/utf8_path.h"
#include "library/library_config.h"
#include "library/library_conversion.h"
#include "standalone/cli/command_error.h"
#include "standalone/cli/parameter_lookup.h"
#include "standalone/cli/progress_bar.h"
#include "standalone/cli/project_file.h"
#include "standalone/cli/quiet_output.h"
#include "standalone/cli/typed_path.h"
#include "standalone/host/instance.h"
#include "standalone/host/picture_file.h"
#include "standalone/scripting/runner/load_dialog_runner.h"

namespace quiltor::standalone {
namespace {

DialogOptions dialogOptions(const SessionOptions& session, const DialogCommandOptions& options, std::ostream& out) {
  DialogOptions dialogs;
  if (!options.headless.empty()) {
    dialogs.steps = readSteps(options.headless);
    dialogs.stepsName = utf8FromPath(options.headless);
  }
  dialogs.screenshot = utf8FromPath(options.screenshot);
  dialogs.scale = options.scale;
  dialogs.folder = session.module.parent_path();
  dialogs.out = &out;
  return dialogs;
}

// What is wrong with the script or the steps; the last line is the command's own.
void requireNoComplaints(const DialogRunner& dialogs, std::ostream& err) {
  const std::vector<std::string> complaints = dialogs.complaints();
  if (complaints.empty()) return;
  for (std::size_t i = 0; i + 1 < complaints.size(); ++i) err << "quiltor: " << complaints[i] << '\n';
  throw CommandFailure(complaints.back());
}

CallResult clickOwnControl(Effect& effect, Instance& instance) {
  const std::optional<int> control = ownControl(effect.parameters());
  if (!control) throw CommandFailure("the effect has no control of its own to click on");
  return instance.clickedByUser(*control).call;
}

void printPick(std::string_view result, std::ostream& out) {
  const auto [picture, label, name] = threeFields(result);
  if (picture.empty()) {
    out << (result.empty() ? "nothing was picked\n" : "nothing was picked, and the list of libraries was made anew\n");
    return;
  }
  out << "picked " << picture << "\nfrom [" << label << (name.empty() ? "]" : "] ") << name << '\n';
}

void printResult(const std::string& result, std::ostream& out) {
  constexpr std::string_view kSettings = "baseFolder: ";
  if (!result.starts_with(kSettings)) return printPick(result, out);
  out << "saved\n" << result;
}

World renderPick(const Effect& effect, Instance& instance, const World& input) {
  Frame frame;
  frame.input = &input;
  const bool isSmart = (effect.outFlags2() & PF_OutFlag2_SUPPORTS_SMART_RENDER) != 0;
  RenderResult rendered = isSmart ? instance.renderSmart(frame) : instance.render(frame);
  if (rendered.code != PF_Err_NONE) {
    throw CommandFailure("rendering the pick: " + describeFailure(rendered.code, rendered.message));
  }
  if (!rendered.output) throw CommandFailure("the effect rendered an empty rectangle");
  return std::move(*rendered.output);
}

using Opening = std::function<CallResult(Effect&, Instance&)>;

// Sets an instance up in a host that runs scripts, opens a dialog and gives the script's result.
std::string openQuietly(const SessionOptions& session, const DialogCommandOptions& options, std::ostream& out,
                        std::ostream& err, const Opening& open) {
  const std::optional<World> input =
      options.input.empty() ? std::nullopt : std::optional(readPicture(options.input, WorldFormat::Argb8));
  const std::optional<std::vector<unsigned char>> project = readProject(options.project);
  const std::unique_ptr<DialogRunner> dialogs = loadDialogRunner(dialogOptions(session, options, out));

  std::string result;
  std::optional<World> picture;
  std::vector<unsigned char> flat;
  HostOptions host;
  host.runScript = [&](const std::string& script) {
    ScriptOutcome outcome = dialogs->run(script);
    result = outcome.result;
    return outcome;
  };
  if (input) {
    host.transform.positionX = host.transform.anchorX = input->width() / 2.0;
    host.transform.positionY = host.transform.anchorY = input->height() / 2.0;
  }
  withEffect(session, std::move(host), err, [&](Effect& effect) {
    Instance instance(effect);
    requireSuccess(project ? instance.resetupFrom(*project) : instance.setUp(), "setting up an instance");
    requireSuccess(open(effect, instance), "opening the dialog");
    requireNoComplaints(*dialogs, err);
    if (input) picture = renderPick(effect, instance, *input);
    if (!options.project.empty()) requireSuccess(instance.getFlattened(flat), "saving the instance");
    requireSuccess(instance.shutDown(), "closing an instance");
  });
  if (picture) writePng(options.output, *picture);
  if (!options.project.empty()) writeProject(options.project, flat);
  return result;
}

// What a dialog has set going in the background goes on in a host, but here the program is about to end.
void finishConversion(const Console& console) {
  const ConversionFolders folders = readConversionFolders();
  if (folders.images.empty()) return;
  ProgressBar bar(console);
  convertLibraryFiles(folders.images, folders.patterns,
                      [&bar](const ConversionProgress& progress) { bar.show(progress.done, progress.total, ""); });
}

std::string openIn(const SessionOptions& session, const DialogCommandOptions& options, const Console& console,
                   const Opening& open) {
  std::ostringstream said;
  std::string result;
  std::exception_ptr failure;
  {
    // Conversions print names of patterns, in the module and here.
    const QuietOutput quiet;
    try {
      result = openQuietly(session, options, said, console.err, open);
      finishConversion(console);
    } catch (...) {
      failure = std::current_exception();
    }
  }
  console.out << said.str();
  if (failure) std::rethrow_exception(failure);
  return result;
}

}  // namespace

void runGallery(const SessionOptions& session, const DialogCommandOptions& options, const Console& console) {
  if (options.input.empty() != options.output.empty()) throw UsageError("--render and --output belong together");
  if (!options.output.empty()) requirePngName("--output", options.output);
  printResult(openIn(session, options, console, clickOwnControl), console.out);
}

void runSettings(const SessionOptions& session, const DialogCommandOptions& options, const Console& console) {
  const std::string result =
      openIn(session, options, console, [](Effect&, Instance& instance) { return instance.doDialog(); });
  console.out << (result.empty() ? "nothing was saved\n" : "saved\n" + result);
}

}  // namespace quiltor::standalone
