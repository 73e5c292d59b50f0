#include "platform/named_mutex_posix.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/file.h>
#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

#include <atomic>
#include <filesystem>
#include <mutex>
#include <new>
#include <random>
#include <string>
#include <thread>

#include "platform/environment_override.h"
#include "platform/named_mutex.h"
#include "platform/scratch_folder.h"

namespace quiltor {
namespace {

constexpr int kTurns = 2000;

// What several threads or processes do between lock() and unlock(): notices when it is not alone.
struct Room {
  std::atomic<int> inside = 0;
  std::atomic<int> meetings = 0;
  std::atomic<int> visits = 0;

  void visitOften(NamedMutex& mutex) {
    for (int turn = 0; turn < kTurns; ++turn) {
      const std::lock_guard lock(mutex);
      if (inside.fetch_add(1) != 0) ++meetings;
      std::this_thread::yield();
      ++visits;
      inside.fetch_sub(1);
    }
  }
};

// Memory that a forked process shares with its parent.
template <class Record>
class Shared {
 public:
  Shared()
      : memory_(mmap(nullptr, sizeof(Record), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0)),
        record_(new (memory_) Record) {}
  ~Shared() { munmap(memory_, sizeof(Record)); }
  Shared(const Shared&) = delete;
  Shared& operator=(const Shared&) = delete;
  Record* operator->() const { return record_; }

 private:
  void* memory_;
  Record* record_;
};

template <class Work>
pid_t startProcess(Work work) {
  const pid_t child = fork();
  if (child == 0) {
    work();
    _exit(0);
  }
  return child;
}

// Each test has a mutex of its own; other programs of the user may be running the same tests.
class NamedMutexTest : public testing::Test {
 protected:
  ~NamedMutexTest() override {
    std::filesystem::remove_all(lockFile());
    std::filesystem::remove_all(lockFilePath(name_ + "OTHER"));
  }

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

TEST_F(NamedMutexTest, IsHeldFromLockToUnlock) {
  NamedMutex mutex(name_);
  mutex.lock();
  EXPECT_TRUE(isHeld());
  mutex.unlock();
  EXPECT_FALSE(isHeld());
}

void expectApart(NamedMutex& mutex) {
  Room room;
  std::thread other([&] { room.visitOften(mutex); });
  room.visitOften(mutex);
  other.join();
  EXPECT_EQ(room.meetings, 0);
  EXPECT_EQ(room.visits, 2 * kTurns);
}

TEST_F(NamedMutexTest, KeepsThreadsApart) {
  NamedMutex mutex(name_);
  expectApart(mutex);
}

TEST_F(NamedMutexTest, KeepsThreadsApartThatMadeItTwice) {
  Room room;
  const auto work = [&] {
    NamedMutex mutex(name_);
    room.visitOften(mutex);
  };
  std::thread other(work);
  work();
  other.join();
  EXPECT_EQ(room.meetings, 0);
  EXPECT_EQ(room.visits, 2 * kTurns);
}

TEST_F(NamedMutexTest, KeepsProcessesApart) {
  const Shared<Room> room;
  const auto work = [&] {
    NamedMutex mutex(name_);
    room->visitOften(mutex);
  };
  const pid_t first = startProcess(work);
  const pid_t second = startProcess(work);
  EXPECT_EQ(waitpid(first, nullptr, 0), first);
  EXPECT_EQ(waitpid(second, nullptr, 0), second);
  EXPECT_EQ(room->meetings, 0);
  EXPECT_EQ(room->visits, 2 * kTurns);
}

TEST_F(NamedMutexTest, KeepsProcessesApartThatHaveDifferentEnvironments) {
  const Shared<Room> room;
  const ScratchFolder folder;
  const auto work = [&](const char* variable) {
    const EnvironmentOverride override(variable, folder.path());
    NamedMutex mutex(name_);
    room->visitOften(mutex);
  };
  const pid_t first = startProcess([&] { work("XDG_RUNTIME_DIR"); });
  const pid_t second = startProcess([&] { work("TMPDIR"); });
  EXPECT_EQ(waitpid(first, nullptr, 0), first);
  EXPECT_EQ(waitpid(second, nullptr, 0), second);
  EXPECT_EQ(room->meetings, 0);
  EXPECT_EQ(room->visits, 2 * kTurns);
}

TEST_F(NamedMutexTest, IsFreeAgainWhenItsOwnerDied) {
  const Shared<std::atomic<bool>> locked;
  const pid_t owner = startProcess([&] {
    NamedMutex mutex(name_);
    mutex.lock();
    locked->store(true);
    while (true) pause();
  });
  while (!locked->load()) std::this_thread::yield();
  EXPECT_TRUE(isHeld());
  kill(owner, SIGKILL);
  ASSERT_EQ(waitpid(owner, nullptr, 0), owner);
  NamedMutex mutex(name_);
  mutex.lock();
  EXPECT_TRUE(isHeld());
  mutex.unlock();
}

TEST_F(NamedMutexTest, FollowsItsLockFileWhenThatWasSweptAway) {
  NamedMutex mutex(name_);
  mutex.lock();
  mutex.unlock();
  std::filesystem::remove(lockFile());
  mutex.lock();
  EXPECT_TRUE(isHeld());
  mutex.unlock();
}

TEST_F(NamedMutexTest, ADifferentNameIsADifferentMutex) {
  NamedMutex mutex(name_);
  NamedMutex other(name_ + "OTHER");
  const std::lock_guard lock(mutex);
  const std::lock_guard otherLock(other);
  EXPECT_TRUE(std::filesystem::exists(lockFile()));
  EXPECT_TRUE(std::filesystem::exists(lockFilePath(name_ + "OTHER")));
}

TEST_F(NamedMutexTest, KeepsThreadsApartWhereTheSystemRefusesALockFile) {
  std::filesystem::create_directory(lockFile());
  NamedMutex mutex(name_);
  expectApart(mutex);
}

TEST_F(NamedMutexTest, DoesNotFollowALinkThatSomebodyLaidInItsPlace) {
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
