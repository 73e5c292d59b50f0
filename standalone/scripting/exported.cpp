#include "standalone/scripting/dialogs.h"

// For loadDialogRunner().
extern "C" __attribute__((visibility("default"))) quiltor::standalone::DialogRunner* quiltorMakeDialogRunner(
    const quiltor::standalone::DialogOptions& options) {
  return new quiltor::standalone::Dialogs(options);
}
