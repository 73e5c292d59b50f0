#include "platform/named_mutex_posix.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/file.h>
#include <unistd.h>

#include <filesystem>
#include <mutex>
#include <random>
#include <string>

#include "platform/named_mutex.h"
#include "platform/scratch_folder.h"
#include "platform/testing/threads_apart.h"

namespace quiltor {
namespace {

// Each test has a mutex of its own; other programs of the user may be running the same tests.
class LockFile : public testing::Test {
 protected:
  ~LockFile() override { std::filesystem::remove_all(lockFile()); }

  std::string lockFile() const { return lockFilePath(name_); }

  bool isHeld() const {
    const int descriptor = open(lockFile().c_str(), O_RDONLY | O_CLOEXEC);
    EXPECT_GE(descriptor, 0);
    const bool held = flock(descriptor, LOCK_EX | LOCK_NB) != 0;
    close(descriptor);
    return held;
  }

  const std::string name_ = "TEST" + std::to_string(std::random_device()());
};

TEST_F(LockFile, IsHeldFromLockToUnlock) {
  NamedMutex mutex(name_);
  mutex.lock();
  EXPECT_TRUE(isHeld());
  mutex.unlock();
  EXPECT_FALSE(isHeld());
}

TEST_F(LockFile, FollowsItsLockFileWhenThatWasSweptAway) {
  NamedMutex mutex(name_);
  mutex.lock();
  mutex.unlock();
  std::filesystem::remove(lockFile());
  mutex.lock();
  EXPECT_TRUE(isHeld());
  mutex.unlock();
}

TEST_F(LockFile, KeepsThreadsApartWhereTheSystemRefusesALockFile) {
  std::filesystem::create_directory(lockFile());
  NamedMutex mutex(name_);
  EXPECT_EQ(turnsApart(mutex), kTurnsApart);
}

TEST_F(LockFile, DoesNotFollowALinkThatSomebodyLaidInItsPlace) {
  {
    NamedMutex mutex(name_);
    const std::lock_guard lock(mutex);
  }
  const std::string path = lockFile();
  std::filesystem::remove(path);
  const ScratchFolder target;
  std::filesystem::create_symlink(target.path("made-by-following"), path);
  NamedMutex mutex(name_);
  const std::lock_guard lock(mutex);
  EXPECT_TRUE(std::filesystem::is_empty(target.path()));
}

}  // namespace
}  // namespace quiltor
