#include <gtest/gtest.h>
#include <windows.h>

#include <string>

#include "standalone/host/services/shared_library.h"

namespace quiltor::standalone {
namespace {

TEST(WindowsSharedLibrary, IsLoadedInTheModeInWhichNoCrashOpensAWindow) {
  const UINT before = SetErrorMode(SEM_NOGPFAULTERRORBOX);
  std::string problem;
  EXPECT_EQ(loadLibrary("missing.dll", problem), nullptr);
  EXPECT_EQ(SetErrorMode(before), UINT{SEM_NOGPFAULTERRORBOX | SEM_FAILCRITICALERRORS});
}

}  // namespace
}  // namespace quiltor::standalone
