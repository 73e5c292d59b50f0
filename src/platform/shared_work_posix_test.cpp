#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <atomic>
#include <chrono>
#include <cstdlib>
#include <thread>

#include "platform/shared_work.h"

namespace quiltor {
namespace {

void countVisit(void* visits) noexcept { ++*static_cast<std::atomic<int>*>(visits); }

// How often work is done that is offered to 8 helpers.
int visitsBeside8() {
  std::atomic<int> visits = 0;
  shareWork(8, &countVisit, &visits);
  return visits;
}

// Where leaks are looked for at a process's end, that waits for threads that a fork does not have.
#ifdef __has_feature
constexpr bool kLooksForLeaks = __has_feature(address_sanitizer);
#else
constexpr bool kLooksForLeaks = false;
#endif

TEST(LinuxSharedWork, IsDoneByTheCallerAloneInAForkWhichHasNoHelpers) {
  EXPECT_GE(visitsBeside8(), 1);
  std::this_thread::sleep_for(std::chrono::milliseconds(100));  // by when they wait for more
  const pid_t fork = ::fork();
  if (fork == 0) {
    alarm(10);
    const int status = visitsBeside8() == 1 ? 0 : 1;
    if (kLooksForLeaks) _exit(status);
    std::exit(status);
  }
  int status = -1;
  EXPECT_EQ(waitpid(fork, &status, 0), fork);
  EXPECT_EQ(status, 0);
}

}  // namespace
}  // namespace quiltor
