#include "ui/library_dialogs.h"

#include <utility>

#include "host/application.h"
#include "host/live_sequence.h"
#include "host/suite_handler.h"
#include "library/library_config.h"
#include "library/library_conversion.h"
#include "platform/cursor.h"
#include "ui/dialog_scripts.h"
#include "ui/script_runner.h"
#include "ui/script_text.h"

namespace quiltor {
namespace {

// How the gallery says that it made the list of libraries anew.
constexpr char kUpdated[] = "*UPD";

std::string filledScript(LibraryDialog dialog, const PatternSelection& selection) {
  const std::string_view script = dialog == LibraryDialog::Gallery ? galleryScript() : settingsScript();
  const ScreenPoint mouse = cursorPosition();
  std::string filled = fillPlaceholders(script, mouse, selection);
  // Deliberate: a selection that would cost the script its end is left out, or its owner could never pick another.
  return filled.size() <= kMostScriptBytes ? filled : fillPlaceholders(script, mouse, {});
}

bool saysLibraryChanged(LibraryDialog dialog, const std::string& result) {
  return dialog == LibraryDialog::Gallery ? result.find(kUpdated) != std::string::npos : !result.empty();
}

}  // namespace

LibraryDialog dialogForPicking() { return hasLibraryList() ? LibraryDialog::Gallery : LibraryDialog::Settings; }

std::optional<std::string> openDialog(LibraryDialog dialog, const PatternSelection& selection, const PF_InData& in) {
  if (isVideoEditor(in)) return std::nullopt;
  const std::string script = filledScript(dialog, selection);
  if (dialog == LibraryDialog::Gallery) startLibraryConversion();
  std::optional<std::string> result = runScript(in, script);
  if (result && saysLibraryChanged(dialog, *result)) startLibraryConversion();
  return result;
}

std::optional<PatternSelection> pickIn(const std::string& galleryResult) {
  if (galleryResult.empty() || galleryResult == kUpdated) return std::nullopt;
  auto [path, label, name] = threeFields(galleryResult);
  return PatternSelection{std::move(path), std::move(label), std::move(name)};
}

HostErr settingsDialog(const PF_InData& in) {
  PatternSelection selection;
  if (in.sequence_data) {
    SuiteHandler suites(in.pica_basicP);
    const LiveSequence live(suites.handles(), in.sequence_data);
    if (live) selection = parseSelection(live->text[kSelectionSlot]);
  }
  openDialog(LibraryDialog::Settings, selection, in);
  return PF_Err_NONE;
}

}  // namespace quiltor
