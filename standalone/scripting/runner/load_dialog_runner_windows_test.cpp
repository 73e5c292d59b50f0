#include <gtest/gtest.h>

#include <sstream>
#include <string>

#include "standalone/scripting/runner/load_dialog_runner.h"

namespace quiltor::standalone {
namespace {

TEST(WindowsDialogRunner, SaysThatThereAreNoDialogs) {
  std::ostringstream out;
  std::string reason;
  try {
    static_cast<void>(loadDialogRunner({.out = &out}));
  } catch (const NoDialogs& error) {
    reason = error.what();
  }
  EXPECT_EQ(reason, "the dialogs are not part of the program for Windows");
}

}  // namespace
}  // namespace quiltor::standalone
