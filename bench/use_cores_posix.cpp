#include <sched.h>

#include <cerrno>
#include <string>
#include <system_error>

#include "bench/use_cores.h"

namespace quiltor::bench {

void useCores(int count) {
  cpu_set_t cores;
  CPU_ZERO(&cores);
  for (int core = 0; core < count; ++core) CPU_SET(core, &cores);
  if (sched_setaffinity(0, sizeof cores, &cores) != 0) {
    throw std::system_error(errno, std::generic_category(), "cannot use " + std::to_string(count) + " cores");
  }
}

}  // namespace quiltor::bench
