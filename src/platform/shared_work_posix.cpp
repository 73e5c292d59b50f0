#include <pthread.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <condition_variable>
#include <cstddef>
#include <mutex>
#include <new>

#include "platform/shared_work.h"

namespace quiltor {
namespace {

// In the list of all, as long as helpers may begin with it.
struct Work {
  void (*run)(void*) noexcept;
  void* argument;
  int places;  // helpers that may still begin
  int running = 0;
  Work* next = nullptr;
};

constexpr int kMost = 64;

// Threads that outlive their work: to start new ones takes longer than a small frame. They end with the module.
class Helpers {
 public:
  static Helpers& all();

  // Whether this process is the one that has the threads; a fork of it does not.
  bool areHere() const { return getpid() == process_; }

  void offer(Work& work) {
    const int wanted = work.places;
    {
      const std::lock_guard lock(mutex_);
      while (started_ < wanted && start()) {
      }
      work.next = offered_;
      offered_ = &work;
    }
    for (int i = 0; i < wanted; ++i) offers_.notify_one();
  }

  // Who has not begun by now finds nothing left, and is not waited for.
  void finish(Work& work) {
    std::unique_lock lock(mutex_);
    Work** place = &offered_;
    while (*place != &work) place = &(*place)->next;
    *place = work.next;
    ends_.wait(lock, [&] { return work.running == 0; });
  }

  void end() {
    {
      const std::lock_guard lock(mutex_);
      ending_ = true;
    }
    offers_.notify_all();
    for (int i = 0; i < started_; ++i) pthread_join(threads_[static_cast<std::size_t>(i)], nullptr);
  }

 private:
  bool start() {
    pthread_attr_t attributes;
    if (pthread_attr_init(&attributes) != 0) return false;
    pthread_attr_setstacksize(&attributes, kHelperStackBytes);
    pthread_t& thread = threads_[static_cast<std::size_t>(started_)];
    const bool isStarted = pthread_create(&thread, &attributes, &Helpers::help, this) == 0;
    pthread_attr_destroy(&attributes);
    if (isStarted) ++started_;
    return isStarted;
  }

  Work* firstOffer() const {
    Work* work = offered_;
    while (work && work->places == 0) work = work->next;
    return work;
  }

  static void* help(void* self) {
    static_cast<Helpers*>(self)->help();
    return nullptr;
  }

  void help() {
    std::unique_lock lock(mutex_);
    for (;;) {
      offers_.wait(lock, [this] { return ending_ || firstOffer(); });
      if (ending_) return;
      Work& work = *firstOffer();
      --work.places;
      ++work.running;
      lock.unlock();
      work.run(work.argument);
      lock.lock();
      if (--work.running == 0) ends_.notify_all();
    }
  }

  const pid_t process_ = getpid();
  std::mutex mutex_;
  std::condition_variable offers_, ends_;
  Work* offered_ = nullptr;
  bool ending_ = false;
  std::array<pthread_t, kMost> threads_{};
  int started_ = 0;
};

// Deliberate: never destroyed, because a fork that destroyed it would wait for threads that it does not have.
Helpers& Helpers::all() {
  alignas(Helpers) static std::byte memory[sizeof(Helpers)];
  static Helpers& helpers = *new (memory) Helpers;
  static const struct End {
    ~End() {
      if (helpers.areHere()) helpers.end();
    }
  } atTheModulesEnd;
  return helpers;
}

}  // namespace

void shareWork(int helpers, void (*work)(void*) noexcept, void* argument) {
  Helpers& all = Helpers::all();
  if (helpers < 1 || !all.areHere()) return work(argument);
  Work shared{work, argument, std::min(helpers, kMost)};
  all.offer(shared);
  work(argument);
  all.finish(shared);
}

}  // namespace quiltor
