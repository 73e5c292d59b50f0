#include "host/render_mutex.h"

#include <gtest/gtest.h>

#include <chrono>
#include <future>
#include <mutex>

namespace quiltor {
namespace {

TEST(RenderMutex, IsOneMutexNamedMYMUForTheWholeProcess) {
  NamedMutex& mutex = renderMutex();
  EXPECT_EQ(&mutex, &renderMutex());
  NamedMutex sameName("MYMU");
  std::future<void> entering;
  {
    const std::lock_guard lock(mutex);
    entering = std::async(std::launch::async, [&] { const std::lock_guard other(sameName); });
    EXPECT_EQ(entering.wait_for(std::chrono::milliseconds(50)), std::future_status::timeout);
  }
  entering.get();
}

}  // namespace
}  // namespace quiltor
