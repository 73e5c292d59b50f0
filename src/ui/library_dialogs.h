#pragma once

#include <optional>
#include <string>

#include "host/host_error.h"
#include "host/pattern_selection.h"
#include "hostapi/effect.h"

namespace quiltor {

enum class LibraryDialog { Gallery, Settings };

// The gallery, once there is a list of libraries to browse.
LibraryDialog dialogForPicking();

// Opens a dialog and gives its result when it is closed; starts a conversion when the result says that the library
// changed, and before the gallery opens. Nothing when no dialog opened. Throws 516 without the host's suites.
std::optional<std::string> openDialog(LibraryDialog dialog, const PatternSelection& selection, const PF_InData& in);

// What the user picked in the gallery; nothing when the dialog was closed without a pick.
std::optional<PatternSelection> pickIn(const std::string& galleryResult);

// The handler of the effect's "Settings" button.
HostErr settingsDialog(const PF_InData& in);

}  // namespace quiltor
