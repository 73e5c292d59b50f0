#include "platform/named_mutex.h"

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <filesystem>
#include <mutex>
#include <random>
#include <string>
#include <thread>

#include "platform/environment_override.h"
#ifndef _WIN32
#include "platform/named_mutex_posix.h"
#endif
#include "platform/scratch_folder.h"
#include "platform/testing/shared_record.h"
#include "platform/testing/test_process.h"
#include "platform/testing/wait_for.h"

namespace quiltor {
namespace {

using namespace std::chrono_literals;

constexpr int kTurns = 2000;

// What several threads or processes do between lock() and unlock(): notices when it is not alone.
struct Room {
  std::atomic<int> inside;
  std::atomic<int> meetings;
  std::atomic<int> visits;
  std::atomic<bool> locked;

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

// The words are the name, the room's file and an environment variable that differs from the other processes'.
const ProcessWork kVisitOften("visit a room often", [](const std::vector<std::string>& words) {
  const EnvironmentOverride different(words[2], words[1]);
  NamedMutex mutex(words[0]);
  SharedRecord<Room>(words[1])->visitOften(mutex);
  return 0;
});

const ProcessWork kLockForEver("lock for ever", [](const std::vector<std::string>& words) {
  const SharedRecord<Room> room(words[1]);
  NamedMutex mutex(words[0]);
  mutex.lock();
  room->locked = true;
  while (true) std::this_thread::sleep_for(1h);
  return 0;
});

// A thread that locks the mutex and keeps it until it is told to give it back, and lives on until the end of the scope.
class Claim {
 public:
  explicit Claim(const std::string& name) : thread_([this, name] { keep(name); }) {}
  ~Claim() {
    giveBack();
    ended_ = true;
    thread_.join();
  }
  Claim(const Claim&) = delete;
  Claim& operator=(const Claim&) = delete;

  bool comes(std::chrono::milliseconds patience) const {
    return waitFor([&] { return has_.load(); }, patience);
  }
  void giveBack() { givenBack_ = true; }

 private:
  void keep(const std::string& name) {
    NamedMutex mutex(name);
    mutex.lock();
    has_ = true;
    while (!givenBack_) std::this_thread::sleep_for(1ms);
    mutex.unlock();
    while (!ended_) std::this_thread::sleep_for(1ms);
  }

  std::atomic<bool> has_ = false, givenBack_ = false, ended_ = false;
  std::thread thread_;
};

// Each test has a mutex of its own; other programs of the user may be running the same tests.
class NamedMutexTest : public testing::Test {
 protected:
#ifndef _WIN32  // there no file is left of it
  ~NamedMutexTest() override {
    for (const char* ending : {"", "OTHER"}) std::filesystem::remove(lockFilePath(name_ + ending));
  }
#endif

  void visitWithTwoProcesses(const std::string& firstsVariable, const std::string& secondsVariable) {
    TestProcess first(kVisitOften, {name_, roomFile_, firstsVariable});
    TestProcess second(kVisitOften, {name_, roomFile_, secondsVariable});
    EXPECT_EQ(first->end(), 0);
    EXPECT_EQ(second->end(), 0);
    expectApart();
  }
  void expectApart() {
    EXPECT_EQ(room_->meetings, 0);
    EXPECT_EQ(room_->visits, 2 * kTurns);
  }

  const std::string name_ = "TEST" + std::to_string(std::random_device()());
  ScratchFolder scratch_;
  const std::string roomFile_ = scratch_.path("room");
  SharedRecord<Room> room_{roomFile_};
};

TEST_F(NamedMutexTest, KeepsThreadsApart) {
  NamedMutex mutex(name_);
  std::thread other([&] { room_->visitOften(mutex); });
  room_->visitOften(mutex);
  other.join();
  expectApart();
}

TEST_F(NamedMutexTest, KeepsThreadsApartThatMadeItTwice) {
  const auto work = [&] {
    NamedMutex mutex(name_);
    room_->visitOften(mutex);
  };
  std::thread other(work);
  work();
  other.join();
  expectApart();
}

TEST_F(NamedMutexTest, KeepsProcessesApart) { visitWithTwoProcesses("QUILTOR_TEST_NOTHING", "QUILTOR_TEST_NOTHING"); }

TEST_F(NamedMutexTest, KeepsProcessesApartThatHaveDifferentEnvironments) {
  visitWithTwoProcesses("XDG_RUNTIME_DIR", "TMPDIR");
}

TEST_F(NamedMutexTest, IsHeldUntilItsOwnerDied) {
  TestProcess owner(kLockForEver, {name_, roomFile_});
  ASSERT_TRUE(waitFor([&] { return room_->locked.load(); })) << "the owner never locked it";
  Claim heir(name_);
  EXPECT_FALSE(heir.comes(200ms));
  owner->kill();
  EXPECT_TRUE(heir.comes(10s));
  Claim next(name_);
  EXPECT_FALSE(next.comes(200ms)) << "the heir did not lock it";
  heir.giveBack();
  EXPECT_TRUE(next.comes(10s)) << "the heir did not unlock it";
  EXPECT_EQ(owner->end(), ChildProgram::kKilled);
}

TEST_F(NamedMutexTest, ADifferentNameIsADifferentMutex) {
  NamedMutex mutex(name_);
  NamedMutex other(name_ + "OTHER");
  const std::lock_guard lock(mutex);
  std::thread([&] { const std::lock_guard otherLock(other); }).join();
}

}  // namespace
}  // namespace quiltor
