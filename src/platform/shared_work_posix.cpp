#include <pthread.h>

#include <array>
#include <cstddef>

#include "platform/shared_work.h"

namespace quiltor {
namespace {

// The system keeps small stacks of ended threads for the next ones, while stacks of the usual size are mapped and given
// back each time.
const pthread_attr_t* smallStack() {
  static const struct Attributes {
    Attributes() {
      usable = pthread_attr_init(&value) == 0 && pthread_attr_setstacksize(&value, kHelperStackBytes) == 0;
    }
    pthread_attr_t value;
    bool usable;
  } attributes;
  return attributes.usable ? &attributes.value : nullptr;
}

struct Work {
  void (*run)(void*) noexcept;
  void* argument;

  static void* start(void* self) {
    const auto& work = *static_cast<const Work*>(self);
    work.run(work.argument);
    return nullptr;
  }
};

constexpr int kMost = 64;

}  // namespace

void shareWork(int helpers, void (*work)(void*) noexcept, void* argument) {
  Work shared{work, argument};
  std::array<pthread_t, kMost> threads;
  std::size_t started = 0;
  for (int i = 0; i < helpers && started < threads.size(); ++i) {
    if (pthread_create(&threads[started], smallStack(), &Work::start, &shared) == 0) ++started;
  }
  work(argument);
  for (std::size_t i = 0; i < started; ++i) pthread_join(threads[i], nullptr);
}

}  // namespace quiltor
