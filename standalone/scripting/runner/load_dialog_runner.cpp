#include "standalone/scripting/runner/load_dialog_runner.h"

#include <dlfcn.h>

#include <filesystem>
#include <system_error>

namespace quiltor::standalone {
namespace {

std::filesystem::path dialogLibraryPath() {
  std::error_code error;
  const std::filesystem::path program = std::filesystem::read_symlink("/proc/self/exe", error);
  return (error ? std::filesystem::path() : program.parent_path()) / "QuiltorDialogs.so";
}

}  // namespace

std::unique_ptr<DialogRunner> loadDialogRunner(const DialogOptions& options) {
  const std::filesystem::path path = dialogLibraryPath();
  std::error_code error;
  if (!std::filesystem::exists(path, error)) {
    throw NoDialogs("this build has no dialogs: " + path.string() +
                    " is missing; install qt6-base-dev and qt6-declarative-dev, then build again");
  }
  void* const library = dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL);
  if (!library) throw NoDialogs("cannot load the dialogs: " + std::string(dlerror()));
  const auto make = reinterpret_cast<MakeDialogRunner>(dlsym(library, kDialogRunnerSymbol));
  if (!make) throw NoDialogs("cannot load the dialogs: " + path.string() + " is something else");
  return std::unique_ptr<DialogRunner>(make(options));
}

}  // namespace quiltor::standalone
