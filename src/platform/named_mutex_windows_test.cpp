#include <gtest/gtest.h>
#include <windows.h>

#include <mutex>
#include <random>
#include <string>
#include <thread>

#include "platform/named_mutex.h"
#include "platform/testing/threads_apart.h"

namespace quiltor {
namespace {

class WindowsMutex : public testing::Test {
 protected:
  const std::string name_ = "TEST" + std::to_string(std::random_device()());
};

// What another thread's waiting for a handle gives at once.
DWORD othersResult(HANDLE handle) {
  DWORD result = WAIT_FAILED;
  std::thread([&] { result = WaitForSingleObject(handle, 0); }).join();
  return result;
}

TEST_F(WindowsMutex, IsTheSystemsOfThatName) {
  NamedMutex mutex(name_);
  const HANDLE same = OpenMutexA(SYNCHRONIZE, FALSE, name_.c_str());
  ASSERT_NE(same, nullptr);
  mutex.lock();
  EXPECT_EQ(othersResult(same), static_cast<DWORD>(WAIT_TIMEOUT));
  mutex.unlock();
  EXPECT_EQ(othersResult(same), WAIT_OBJECT_0);
  CloseHandle(same);
}

TEST_F(WindowsMutex, KeepsThreadsApartWhereTheSystemRefusesIt) {
  // The name is taken by something that is no mutex.
  const HANDLE event = CreateEventA(nullptr, FALSE, FALSE, name_.c_str());
  ASSERT_NE(event, nullptr);
  NamedMutex mutex(name_);
  EXPECT_EQ(turnsApart(mutex), kTurnsApart);
  CloseHandle(event);
}

}  // namespace
}  // namespace quiltor
