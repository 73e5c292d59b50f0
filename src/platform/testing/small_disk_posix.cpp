#include <sys/resource.h>

#include <csignal>

#include "platform/testing/small_disk.h"

namespace quiltor {

struct SmallDisk::Limit {
  rlimit before{};
  void (*handlerBefore)(int) = SIG_DFL;
};

SmallDisk::SmallDisk(int64_t mostBytes) : limit_(std::make_unique<Limit>()) {
  // Otherwise the system ends the process.
  limit_->handlerBefore = std::signal(SIGXFSZ, SIG_IGN);
  getrlimit(RLIMIT_FSIZE, &limit_->before);
  const rlimit small = {static_cast<rlim_t>(mostBytes), limit_->before.rlim_max};
  setrlimit(RLIMIT_FSIZE, &small);
}

SmallDisk::~SmallDisk() {
  setrlimit(RLIMIT_FSIZE, &limit_->before);
  std::signal(SIGXFSZ, limit_->handlerBefore);
}

}  // namespace quiltor
