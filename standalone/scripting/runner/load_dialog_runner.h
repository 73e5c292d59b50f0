#pragma once

#include <memory>
#include <stdexcept>

#include "standalone/scripting/runner/dialog_runner.h"

namespace quiltor::standalone {

// what() is one line: what is missing and how to get it.
class NoDialogs : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

// Loads QuiltorDialogs.so from beside the program, or from the options' folder, so that only those who open dialogs
// wait for Qt. It stays loaded. Throws NoDialogs when it was not built or cannot run here, and always on Windows.
[[nodiscard]] std::unique_ptr<DialogRunner> loadDialogRunner(const DialogOptions& options);

}  // namespace quiltor::standalone
