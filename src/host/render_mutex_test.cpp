#include "host/render_mutex.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <mutex>

#include "platform/environment_override.h"
#include "platform/scratch_folder.h"

namespace quiltor {
namespace {

TEST(RenderMutex, IsOneMutexNamedMYMUForTheWholeProcess) {
  const ScratchFolder scratch;
  const EnvironmentOverride runtime("XDG_RUNTIME_DIR", scratch.path());
  NamedMutex& mutex = renderMutex();
  EXPECT_EQ(&mutex, &renderMutex());
  const std::lock_guard lock(mutex);
  const std::filesystem::directory_iterator files(scratch.path());
  ASSERT_NE(files, end(files)) << "another test of this process made the mutex before";
  EXPECT_NE(files->path().string().find("MYMU"), std::string::npos);
}

}  // namespace
}  // namespace quiltor
