#include "standalone/cli/command_line.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <exception>
#include <new>
#include <optional>
#include <string>
#include <vector>

#include "standalone/cli/about_command.h"
#include "standalone/cli/command_error.h"
#include "standalone/cli/convert_command.h"
#include "standalone/cli/dialog_options.h"
#include "standalone/cli/library_command.h"
#include "standalone/cli/line_text.h"
#include "standalone/cli/near_miss.h"
#include "standalone/cli/number_text.h"
#include "standalone/cli/panel_command.h"
#include "standalone/cli/params_command.h"
#include "standalone/cli/render_command.h"
#include "standalone/cli/typed_path.h"
#include "standalone/cli/validate_command.h"

namespace quiltor::standalone {
namespace {

constexpr int kFailure = 1;
constexpr int kWrongUse = 2;
constexpr char kPluginText[] = "The effect module; the Quiltor module beside this program without it";

A_long requireHost(const std::string& name) {
  if (name == "after-effects") return kAppId_AfterEffects;
  if (name == "premiere") return kAppId_PremierePro;
  throw UsageError("--host: \"" + name + "\": expected after-effects or premiere");
}

void addSessionOptions(CLI::App& command, SessionOptions& session) {
  addPath(command, "--plugin", session.module, kPluginText)->type_name("PATH");
  command.add_flag("--trace", session.trace, "Print every selector, suite and script that the module touches");
  command
      .add_option_function<std::string>(
          "--host", [&session](const std::string& name) { session.appId = requireHost(name); },
          "The application to play; after-effects without it")
      ->type_name("after-effects|premiere");
}

std::pair<double, double> requirePair(const std::string& option, const std::string& text, const char* expected) {
  const auto pair = parsePair(text);
  if (!pair) throw UsageError(option + ": \"" + text + "\": expected " + expected);
  return *pair;
}

double requireNumber(const std::string& option, const std::string& text, const char* expected) {
  const auto number = parseNumber(text);
  if (!number) throw UsageError(option + ": \"" + text + "\": expected " + expected);
  return *number;
}

std::pair<double, double> requireScale(const std::string& option, const std::string& text) {
  if (const auto both = parseNumber(text)) return {*both, *both};
  return requirePair(option, text, "percent, such as 50 or 50,80");
}

WorldFormat requireDepth(const std::string& text) {
  if (text == "8") return WorldFormat::Argb8;
  if (text == "16") return WorldFormat::Argb16;
  if (text == "float") return WorldFormat::ArgbFloat;
  throw UsageError("--depth: \"" + text + "\": expected 8, 16 or float");
}

void addTransformOptions(CLI::App& command, RenderOptions& render) {
  const auto callback = [&command](const char* name, const char* type, const char* text, auto store) {
    command.add_option_function<std::string>(name, store, text)->type_name(type)->group("The layer in its composition");
  };
  callback("--layer-position", "X,Y", "Where the layer's anchor lies; the composition's centre without it",
           [&render](const std::string& text) {
             render.position = requirePair("--layer-position", text, "pixels, such as 960,540");
           });
  callback("--layer-anchor", "X,Y", "The layer's anchor; its centre without it", [&render](const std::string& text) {
    render.anchor = requirePair("--layer-anchor", text, "pixels, such as 960,540");
  });
  callback("--layer-scale", "PERCENT[,PERCENT]", "The layer's scale, of both axes or of each",
           [&render](const std::string& text) { render.scale = requireScale("--layer-scale", text); });
  callback("--layer-rotation", "DEGREES", "The layer's rotation", [&render](const std::string& text) {
    render.rotation = requireNumber("--layer-rotation", text, "degrees, such as 30 or -12.5");
  });
}

CLI::App* addRender(CLI::App& app, RenderOptions& render, SessionOptions& session) {
  CLI::App* const command = app.add_subcommand("render", "Render a picture with the effect");
  addPath(*command, "INPUT", render.input, "The layer: PNG or JPEG")->required()->type_name("");
  addPath(*command, "-o,--output", render.output, "The picture to write: PNG, 16 bits where the depth is more than 8")
      ->required()
      ->type_name("FILE");
  CLI::Option* const pattern =
      command->add_option("--pattern", render.pattern,
                          "The pattern: PNG, JPEG, FILE.pat#INDEX or FILE.pat#NAME; the placeholder without it");
  pattern->type_name("FILE");
  addPath(*command, "--pattern-layer", render.patternLayer, "Take the pattern from a layer: PNG or JPEG")
      ->type_name("FILE")
      ->excludes(pattern);
  addPath(*command, "--masks", render.masks,
          "The layer's masks: JSON, as README.md describes it; --set mask=ID then chooses one")
      ->type_name("FILE");
  command
      ->add_option("--set", render.assignments,
                   "Set a parameter, by its short or display name; `quiltor params` lists both")
      ->type_name("NAME=VALUE")
      ->allow_extra_args(false);
  command
      ->add_option_function<std::string>(
          "--depth", [&render](const std::string& depth) { render.format = requireDepth(depth); },
          "Bits per channel while rendering: 8 (standard), 16 or float")
      ->type_name("8|16|float");
  command->add_option("--downsample", render.downsample, "Render at 1/N of the resolution")
      ->type_name("N")
      ->check(CLI::Range(1, 64).name(""));
  CLI::Option* const classic = command->add_flag_callback(
      "--classic", [&render] { render.path = RenderPath::Classic; }, "Render with the classic selectors");
  command
      ->add_flag_callback(
          "--smart", [&render] { render.path = RenderPath::Smart; },
          "Render with the smart selectors; standard where the effect offers them")
      ->excludes(classic);
  addTransformOptions(*command, render);
  addSessionOptions(*command, session);
  command->footer(
      "Example:\n"
      "  quiltor render samples/layer.png -o out.png --pattern samples/woven.png \\\n"
      "      --set blendmode=\"Soft Light\" --set opacity=70% --set offset=50%,50% --set tintcolor=#49bc38");
  return command;
}

CLI::App* addPanel(CLI::App& app, PanelOptions& panel, SessionOptions& session) {
  CLI::App* const command =
      app.add_subcommand("panel", "Show which parameters the host's panel shows, greys and hides");
  command->add_option("--set", panel.assignments, "Change a parameter first, as a user would; the panel follows")
      ->type_name("NAME=VALUE")
      ->allow_extra_args(false);
  command
      ->add_option("--pattern", panel.pattern,
                   "What the pattern control shows: PNG, JPEG, FILE.pat#INDEX or FILE.pat#NAME")
      ->type_name("FILE");
  addPath(*command, "--draw", panel.drawing, "Draw the pattern control: PNG")->type_name("FILE");
  addSessionOptions(*command, session);
  command->footer("Example:\n  quiltor panel --set source=Layer");
  return command;
}

CLI::App* addConvert(CLI::App& app, ConvertOptions& convert) {
  CLI::App* const command = app.add_subcommand("convert", "Make PNG files of Photoshop patterns");
  command->add_option("FILE_OR_FOLDER", convert.sources, "Pattern files, and folders that are searched for them")
      ->required()
      ->type_name("");
  command->add_option("-o,--output", convert.output, "Where a folder is made for each file: FOLDER/N/N_00.png of N.pat")
      ->required()
      ->type_name("FOLDER");
  command->footer("Example:\n  quiltor convert samples/tiles.pat -o out");
  return command;
}

struct LibraryCommands {
  LibraryScanOptions scan;
  LibrarySheetOptions sheet;
  CLI::App* library = nullptr;
  CLI::App* listCommand = nullptr;
  CLI::App* scanCommand = nullptr;
  CLI::App* convertCommand = nullptr;
  CLI::App* sheetCommand = nullptr;
};

struct Side {
  const char* option;
  const char* text;
};

// Two options of which one may be given.
void addSwitch(CLI::App& command, std::optional<bool>& value, const Side& on, const Side& off) {
  CLI::Option* const yes = command.add_flag_callback(
      on.option, [&value] { value = true; }, on.text);
  command
      .add_flag_callback(
          off.option, [&value] { value = false; }, off.text)
      ->excludes(yes);
}

void addLibraryScan(CLI::App& library, LibraryCommands& commands) {
  CLI::App* const command = library.add_subcommand("scan", "Write the list of the libraries below some folders");
  commands.scanCommand = command;
  command->add_option("FOLDER", commands.scan.folders, "Up to four folders; those of the settings without any")
      ->type_name("");
  addSwitch(*command, commands.scan.flatten, {"--flatten", "List only the folders directly below, with all below them"},
            {"--no-flatten", "List every folder below"});
  addSwitch(*command, commands.scan.cloud, {"--cloud", "List the libraries of the cloud too"},
            {"--no-cloud", "List no library of the cloud"});
  addSwitch(*command, commands.scan.allUsers, {"--all-users", "Write the list of all users; removes one's own"},
            {"--this-user", "Write the list of this user"});
  command->footer(
      "Without these options all stays as in the settings.\n\nExample:\n  quiltor library scan ~/Textures ~/Patterns");
}

void addLibrary(CLI::App& app, LibraryCommands& commands) {
  commands.library = app.add_subcommand("library", "List, convert and show the libraries of the gallery");
  commands.library->footer("Example:\n  quiltor library scan ~/Textures");
  commands.listCommand = commands.library->add_subcommand("list", "List the libraries and count their pictures");
  commands.listCommand->footer("Example:\n  quiltor library list");
  addLibraryScan(*commands.library, commands);
  commands.convertCommand =
      commands.library->add_subcommand("convert", "Make the pictures of patterns and the thumbnails that are missing");
  commands.convertCommand->footer("Example:\n  quiltor library convert");
  CLI::App* const sheet =
      commands.library->add_subcommand("sheet", "Draw a contact sheet of a library's thumbnails and their names");
  commands.sheetCommand = sheet;
  sheet->add_option("NAME", commands.sheet.library, "The library; `quiltor library list` names them")
      ->required()
      ->type_name("");
  addPath(*sheet, "-o,--output", commands.sheet.output, "The picture to write: PNG")->required()->type_name("FILE");
  sheet->footer("Example:\n  quiltor library sheet Textures -o sheet.png");
}

bool runLibrary(const LibraryCommands& commands, const Console& console) {
  if (*commands.listCommand) {
    runLibraryList(console);
  } else if (*commands.scanCommand) {
    runLibraryScan(commands.scan, console);
  } else if (*commands.convertCommand) {
    return runLibraryConvert(console);
  } else if (*commands.sheetCommand) {
    runLibrarySheet(commands.sheet, console);
  } else {
    throw UsageError("expected library list, scan, convert or sheet; --help explains them");
  }
  return true;
}

CLI::App* addValidate(CLI::App& app, ValidateOptions& validate) {
  CLI::App* const command =
      app.add_subcommand("validate", "Check an effect module against the rules that hosts rely on");
  addPath(*command, "--plugin", validate.module, kPluginText)->type_name("PATH");
  command->add_option("--check", validate.checks, "Run this check alone; may be repeated")
      ->type_name("NAME")
      ->allow_extra_args(false);
  command->add_flag("--list", validate.list, "Name the checks and run none");
  command->add_flag("--json", validate.json, "Print the report as JSON, with every problem");
  command->add_option("--time-limit", validate.timeLimit, "How long a check may take; 60 without it")
      ->type_name("SECONDS")
      ->check(CLI::Range(0.1, 86400.0).name(""));
  CLI::Option* const inProcess =
      command->add_flag("--in-process", validate.inProcess, "Run the one check in this process, for a debugger");
  addPath(*command, "--result", validate.result, "A folder for the check's result")
      ->type_name("FOLDER")
      ->needs(inProcess)
      ->group("");
  command->footer(
      "Every check runs in a process of its own. The exit status is 1 when the module broke a rule.\n\n"
      "Example:\n  quiltor validate --plugin build/native/Quiltor.so --json");
  return command;
}

// What was typed and is known to no command, with the nearest that is.
std::string describeUnknown(const CLI::App& app) {
  const CLI::App* chosen = &app;
  while (!chosen->get_subcommands().empty()) chosen = chosen->get_subcommands().front();
  std::vector<std::string> known;
  for (const CLI::App* command : chosen->get_subcommands({})) known.push_back(command->get_name());
  const bool choosesCommand = !known.empty();
  if (!choosesCommand) {
    for (const CLI::Option* option : chosen->get_options()) known.push_back(option->get_name());
  }
  const std::vector<std::string> extra = app.remaining(true);
  const std::string typed = extra.empty() ? "" : extra.front();
  if (!choosesCommand && typed.find('-') != 0)
    return "\"" + typed + "\": one argument too many; --help tells what is expected";
  const std::string near = suggestion(typed, known);
  return "\"" + typed + "\": no such " + (choosesCommand ? "command" : "option") +
         (near.empty() ? "; --help lists them" : near);
}

int parseAndRun(int argc, const char* const* argv, const Console& console) {
  std::ostream& out = console.out;
  std::ostream& err = console.err;
  SessionOptions session;
  RenderOptions render;
  ConvertOptions convert;
  CLI::App app{"Runs the Quiltor effect, or another effect module, on pictures.", "quiltor"};
  app.footer("Example:\n  quiltor render samples/layer.png -o out.png --pattern samples/woven.png");
  CLI::App* const renderCommand = addRender(app, render, session);
  CLI::App* const convertCommand = addConvert(app, convert);
  LibraryCommands library;
  addLibrary(app, library);
  PanelOptions panel;
  CLI::App* const panelCommand = addPanel(app, panel, session);
  DialogCommandOptions dialog;
  CLI::App* const galleryCommand = addGallery(app, dialog);
  addSessionOptions(*galleryCommand, session);
  CLI::App* const settingsCommand = addSettings(app, dialog);
  addSessionOptions(*settingsCommand, session);
  ValidateOptions validate;
  CLI::App* const validateCommand = addValidate(app, validate);
  CLI::App* const paramsCommand = app.add_subcommand("params", "List the effect's parameters");
  paramsCommand->footer("Example:\n  quiltor params");
  addSessionOptions(*paramsCommand, session);
  CLI::App* const aboutCommand = app.add_subcommand("about", "Print what the effect says about itself");
  aboutCommand->footer("Example:\n  quiltor about --plugin build/native/Quiltor.so");
  addSessionOptions(*aboutCommand, session);

  try {
    app.parse(argc, argv);
  } catch (const CLI::CallForHelp& help) {
    return app.exit(help, out, err);
  } catch (const CLI::ExtrasError&) {
    throw UsageError(describeUnknown(app));
  } catch (const CLI::ParseError& error) {
    throw UsageError(std::string(error.what()) + "; --help tells what is expected");
  }
  if (*renderCommand) {
    runRender(session, render, err);
  } else if (*convertCommand) {
    return runConvert(convert, console) ? 0 : kFailure;
  } else if (*library.library) {
    return runLibrary(library, console) ? 0 : kFailure;
  } else if (*panelCommand) {
    runPanel(session, panel, out, err);
  } else if (*galleryCommand) {
    runGallery(session, dialog, console);
  } else if (*settingsCommand) {
    runSettings(session, dialog, console);
  } else if (*validateCommand) {
    return runValidate(validate, out) ? 0 : kFailure;
  } else if (*paramsCommand) {
    runParams(session, out, err);
  } else if (*aboutCommand) {
    runAbout(session, out, err);
  } else {
    throw UsageError(
        "expected a command: render, convert, library, gallery, settings, panel, validate, params or about; --help "
        "explains them");
  }
  return 0;
}

}  // namespace

int runCommandLine(int argc, const char* const* argv, std::ostream& out, std::ostream& err, bool terminal) {
  try {
    return parseAndRun(argc, argv, {out, err, terminal});
  } catch (const UsageError& error) {
    err << "quiltor: " << printable(error.what()) << '\n';
    return kWrongUse;
  } catch (const std::bad_alloc&) {
    err << "quiltor: not enough memory for a picture of this size\n";
    return kFailure;
  } catch (const std::exception& error) {
    err << "quiltor: " << printable(error.what()) << '\n';
    return kFailure;
  }
}

}  // namespace quiltor::standalone
