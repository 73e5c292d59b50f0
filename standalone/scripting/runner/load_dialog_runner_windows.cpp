#include "standalone/scripting/runner/load_dialog_runner.h"

namespace quiltor::standalone {

std::unique_ptr<DialogRunner> loadDialogRunner(const DialogOptions&) {
  throw NoDialogs("the dialogs are not part of the program for Windows");
}

}  // namespace quiltor::standalone
