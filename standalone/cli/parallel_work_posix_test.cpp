#include <gtest/gtest.h>
#include <sys/resource.h>

#include <thread>
#include <vector>

#include "base/scope_guard.h"
#include "platform/testing/locked.h"
#include "standalone/cli/parallel_work.h"

namespace quiltor::standalone {
namespace {

TEST(LinuxParallelWork, IsDoneByTheCallerWhereTheSystemHasNoThreads) {
  // Nothing limits the threads of an administrator.
  EXPECT_TRUE(asOrdinaryUser([] {
    rlimit before;
    if (getrlimit(RLIMIT_NPROC, &before) != 0) return false;
    const rlimit none{0, before.rlim_max};
    setrlimit(RLIMIT_NPROC, &none);
    const ScopeGuard restore([&] { setrlimit(RLIMIT_NPROC, &before); });
    ParallelWork work(2);
    std::vector<std::future<std::thread::id>> results;
    for (int i = 0; i < 5; ++i) results.push_back(work.start([] { return std::this_thread::get_id(); }));
    for (auto& result : results) {
      if (result.get() != std::this_thread::get_id()) return false;
    }
    return true;
  }));
}

}  // namespace
}  // namespace quiltor::standalone
