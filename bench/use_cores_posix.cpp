#include <sched.h>

#include "bench/use_cores.h"

namespace quiltor::bench {

void useCores(int count) {
  cpu_set_t cores;
  CPU_ZERO(&cores);
  for (int core = 0; core < count; ++core) CPU_SET(core, &cores);
  sched_setaffinity(0, sizeof cores, &cores);
}

}  // namespace quiltor::bench
