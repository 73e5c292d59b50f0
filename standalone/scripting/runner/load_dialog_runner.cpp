#include "standalone/scripting/runner/load_dialog_runner.h"

#include <filesystem>
#include <system_error>

#include "standalone/host/services/shared_library.h"

namespace quiltor::standalone {
namespace {

std::filesystem::path dialogLibraryPath() { return programPath().parent_path() / "QuiltorDialogs.so"; }

}  // namespace

std::unique_ptr<DialogRunner> loadDialogRunner(const DialogOptions& options) {
  const std::filesystem::path path = dialogLibraryPath();
  std::error_code error;
  if (!std::filesystem::exists(path, error)) {
    throw NoDialogs("this build has no dialogs: " + path.string() +
                    " is missing; install qt6-base-dev and qt6-declarative-dev, then build again");
  }
  std::string problem;
  void* const library = loadLibrary(path, problem);
  if (!library) throw NoDialogs("cannot load the dialogs: " + problem);
  const auto make = reinterpret_cast<MakeDialogRunner>(exportedAddress(library, kDialogRunnerSymbol));
  if (!make) throw NoDialogs("cannot load the dialogs: " + path.string() + " is something else");
  return std::unique_ptr<DialogRunner>(make(options));
}

}  // namespace quiltor::standalone
