#include <gtest/gtest.h>
#include <windows.h>

#include <array>
#include <mutex>
#include <random>
#include <string>
#include <thread>

#include "platform/environment_override.h"
#include "platform/named_mutex.h"
#include "platform/process.h"

namespace quiltor {
namespace {

constexpr int kTurns = 200;
constexpr const char* kNameVariable = "QUILTOR_TEST_MUTEX";

// Memory by a name, for what several processes do between lock() and unlock().
struct Room {
  volatile long inside, meetings, visits, ready;
};

class SharedRoom {
 public:
  explicit SharedRoom(const std::string& name)
      : mapping_(CreateFileMappingA(INVALID_HANDLE_VALUE, nullptr, PAGE_READWRITE, 0, sizeof(Room),
                                    (name + "ROOM").c_str())),
        room_(static_cast<Room*>(MapViewOfFile(mapping_, FILE_MAP_ALL_ACCESS, 0, 0, sizeof(Room)))) {}
  ~SharedRoom() {
    UnmapViewOfFile(room_);
    CloseHandle(mapping_);
  }
  SharedRoom(const SharedRoom&) = delete;
  SharedRoom& operator=(const SharedRoom&) = delete;
  Room* operator->() const { return room_; }

  void visitOften(NamedMutex& mutex) const {
    for (int turn = 0; turn < kTurns; ++turn) {
      const std::lock_guard lock(mutex);
      if (InterlockedIncrement(&room_->inside) != 1) InterlockedIncrement(&room_->meetings);
      std::this_thread::yield();
      room_->visits = room_->visits + 1;
      InterlockedDecrement(&room_->inside);
    }
  }

 private:
  HANDLE mapping_;
  Room* room_;
};

// This program once more, to do the work of one test in a process of its own.
HANDLE startTest(const std::string& test) {
  std::array<char, MAX_PATH> program{};
  GetModuleFileNameA(nullptr, program.data(), MAX_PATH);
  std::string line = "\"" + std::string(program.data()) + "\" --gtest_filter=" + test;
  STARTUPINFOA startup{};
  startup.cb = sizeof startup;
  PROCESS_INFORMATION process{};
  if (!CreateProcessA(nullptr, line.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &startup, &process)) {
    return nullptr;
  }
  CloseHandle(process.hThread);
  return process.hProcess;
}

class WindowsMutex : public testing::Test {
 protected:
  const std::string name_ = "TEST" + std::to_string(std::random_device()());
  const EnvironmentOverride told_{kNameVariable, name_};
};

// What the other processes do: nothing when nobody started them for it.
TEST(WindowsMutexProcess, VisitsTheRoomItIsToldOf) {
  const char* const name = std::getenv(kNameVariable);
  if (!name) return;
  NamedMutex mutex(name);
  SharedRoom(name).visitOften(mutex);
}

TEST(WindowsMutexProcess, HoldsTheMutexItIsToldOf) {
  const char* const name = std::getenv(kNameVariable);
  if (!name) return;
  NamedMutex mutex(name);
  mutex.lock();
  InterlockedIncrement(&SharedRoom(name)->ready);
  Sleep(INFINITE);
}

TEST_F(WindowsMutex, KeepsThreadsApart) {
  NamedMutex mutex(name_);
  const SharedRoom room(name_);
  std::thread other([&] { room.visitOften(mutex); });
  room.visitOften(mutex);
  other.join();
  EXPECT_EQ(room->meetings, 0);
  EXPECT_EQ(room->visits, 2 * kTurns);
}

TEST_F(WindowsMutex, KeepsProcessesApart) {
  const SharedRoom room(name_);
  const HANDLE first = startTest("WindowsMutexProcess.VisitsTheRoomItIsToldOf");
  const HANDLE second = startTest("WindowsMutexProcess.VisitsTheRoomItIsToldOf");
  ASSERT_TRUE(first && second);
  for (const HANDLE process : {first, second}) {
    EXPECT_EQ(WaitForSingleObject(process, 60000), WAIT_OBJECT_0);
    CloseHandle(process);
  }
  EXPECT_EQ(room->meetings, 0);
  EXPECT_EQ(room->visits, 2 * kTurns);
}

TEST_F(WindowsMutex, IsOursWhenItsOwnerDied) {
  const SharedRoom room(name_);
  const HANDLE owner = startTest("WindowsMutexProcess.HoldsTheMutexItIsToldOf");
  ASSERT_TRUE(owner);
  for (int turn = 0; turn < 6000 && room->ready == 0; ++turn) Sleep(10);
  ASSERT_EQ(room->ready, 1);
  NamedMutex mutex(name_);
  const auto number = static_cast<int64_t>(GetProcessId(owner));
  EXPECT_TRUE(processRuns(number));
  std::thread killer([&] {
    Sleep(200);
    TerminateProcess(owner, 1);
  });
  mutex.lock();
  // Held: no other thread gets it now.
  const HANDLE same = OpenMutexA(SYNCHRONIZE, FALSE, name_.c_str());
  ASSERT_NE(same, nullptr);
  DWORD othersResult = WAIT_FAILED;
  std::thread([&] { othersResult = WaitForSingleObject(same, 0); }).join();
  EXPECT_EQ(othersResult, WAIT_TIMEOUT);
  mutex.unlock();
  CloseHandle(same);
  killer.join();
  EXPECT_EQ(WaitForSingleObject(owner, 10000), WAIT_OBJECT_0);
  EXPECT_FALSE(processRuns(number));
  CloseHandle(owner);
}

TEST_F(WindowsMutex, KeepsThreadsApartWhereTheSystemRefusesIt) {
  // The name is taken by something that is no mutex.
  const HANDLE event = CreateEventA(nullptr, FALSE, FALSE, name_.c_str());
  ASSERT_NE(event, nullptr);
  NamedMutex mutex(name_);
  const SharedRoom room(name_);
  std::thread other([&] { room.visitOften(mutex); });
  room.visitOften(mutex);
  other.join();
  EXPECT_EQ(room->meetings, 0);
  EXPECT_EQ(room->visits, 2 * kTurns);
  CloseHandle(event);
}

TEST(WindowsProcess, RunsUntilItEnded) {
  EXPECT_TRUE(processRuns(processNumber()));
  EXPECT_FALSE(processRuns(0));
  EXPECT_FALSE(processRuns(-1));
  EXPECT_FALSE(processRuns(int64_t{1} << 40));
}

}  // namespace
}  // namespace quiltor
