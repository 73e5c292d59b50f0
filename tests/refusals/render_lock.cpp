#include "tests/refusals/render_lock.h"

#include <chrono>
#include <future>
#include <thread>

#include "platform/named_mutex.h"

namespace quiltor::refusal_tests {

bool renderLockIsFree() {
  static bool stuck = false;
  if (stuck) return false;
  std::promise<void> promise;
  std::future<void> had = promise.get_future();
  // Of our own, so that it excludes the module's, which is in this process too. Who waits in vain is left waiting.
  std::thread waiting([done = std::move(promise)]() mutable {
    NamedMutex mutex("MYMU");
    mutex.lock();
    mutex.unlock();
    done.set_value();
  });
  constexpr auto kLongest = std::chrono::seconds(60);
  stuck = had.wait_for(kLongest) != std::future_status::ready;
  if (stuck) {
    waiting.detach();
  } else {
    waiting.join();
  }
  return !stuck;
}

}  // namespace quiltor::refusal_tests
