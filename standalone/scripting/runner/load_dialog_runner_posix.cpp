#include "standalone/scripting/runner/load_dialog_runner.h"

#include <filesystem>
#include <system_error>

#include "base/utf8_path.h"
#include "standalone/host/services/shared_library.h"

namespace quiltor::standalone {
namespace {

constexpr const char* kLibraryName = "QuiltorDialogs.so";

std::filesystem::path dialogLibraryPath(const std::filesystem::path& folder) {
  std::error_code error;
  const std::filesystem::path usual = programPath().parent_path() / kLibraryName;
  const bool isElsewhere = !folder.empty() && !std::filesystem::exists(usual, error);
  return isElsewhere ? std::filesystem::absolute(folder) / kLibraryName : usual;
}

}  // namespace

std::unique_ptr<DialogRunner> loadDialogRunner(const DialogOptions& options) {
  const std::filesystem::path path = dialogLibraryPath(options.folder);
  std::error_code error;
  if (!std::filesystem::exists(path, error)) {
    throw NoDialogs("this build has no dialogs: " + utf8FromPath(path) +
                    " is missing; install qt6-base-dev and qt6-declarative-dev, then build again");
  }
  std::string problem;
  void* const library = loadLibrary(path, problem);
  if (!library) throw NoDialogs("cannot load the dialogs: " + problem);
  const auto make = reinterpret_cast<MakeDialogRunner>(exportedAddress(library, kDialogRunnerSymbol));
  if (!make) throw NoDialogs("cannot load the dialogs: " + utf8FromPath(path) + " is something else");
  return std::unique_ptr<DialogRunner>(make(options));
}

}  // namespace quiltor::standalone
