#include "standalone/scripting/runner/load_dialog_runner.h"

#include <gmock/gmock.h>

#include <fstream>
#include <sstream>
#include <string>

#include "platform/scratch_folder.h"

namespace quiltor::standalone {
namespace {

using testing::HasSubstr;
using testing::StartsWith;

// Why the dialogs of a folder cannot be loaded.
std::string reason(const std::string& folder) {
  std::ostringstream out;
  try {
    static_cast<void>(loadDialogRunner({.folder = folder, .out = &out}));
  } catch (const NoDialogs& error) {
    return error.what();
  }
  return "";
}

TEST(LoadDialogRunner, SaysWhatIsMissingInABuildWithoutQt) {
  const ScratchFolder folder;
  EXPECT_EQ(reason(folder.path()), "this build has no dialogs: " + folder.path("QuiltorDialogs.so") +
                                       " is missing; install qt6-base-dev and qt6-declarative-dev, then build again");
}

TEST(LoadDialogRunner, SaysWhatCannotBeLoaded) {
  const ScratchFolder folder;
  std::ofstream(folder.path("QuiltorDialogs.so")) << "no library";
  EXPECT_THAT(reason(folder.path()), StartsWith("cannot load the dialogs: "));
  EXPECT_THAT(reason(folder.path()), HasSubstr("QuiltorDialogs.so"));
}

}  // namespace
}  // namespace quiltor::standalone
