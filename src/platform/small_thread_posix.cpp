#include <pthread.h>

#include "platform/small_thread.h"

namespace quiltor {
namespace {

// Made once: every thread of a pass is started with it.
const pthread_attr_t* smallStack() {
  static const struct Attributes {
    Attributes() {
      usable = pthread_attr_init(&value) == 0 && pthread_attr_setstacksize(&value, SmallThread::kStackBytes) == 0;
    }
    pthread_attr_t value;
    bool usable;
  } attributes;
  return attributes.usable ? &attributes.value : nullptr;
}

}  // namespace

SmallThread::~SmallThread() {
  if (work_) pthread_join(static_cast<pthread_t>(thread_), nullptr);
}

bool SmallThread::start(void (*work)(void*) noexcept, void* argument) {
  work_ = work;
  argument_ = argument;
  pthread_t thread;
  const auto run = [](void* self) -> void* {
    const auto& started = *static_cast<SmallThread*>(self);
    started.work_(started.argument_);
    return nullptr;
  };
  if (pthread_create(&thread, smallStack(), run, this) != 0) {
    work_ = nullptr;
    return false;
  }
  thread_ = static_cast<unsigned long long>(thread);
  return true;
}

}  // namespace quiltor
