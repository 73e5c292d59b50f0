#include <dlfcn.h>
#include <link.h>
#include <signal.h>
#include <unistd.h>

#include <cerrno>
#include <limits>

#include "platform/process.h"

namespace quiltor {

int64_t processNumber() noexcept { return getpid(); }

bool processRuns(int64_t number) noexcept {
  if (number <= 0 || number > std::numeric_limits<pid_t>::max()) return false;
  return kill(static_cast<pid_t>(number), 0) == 0 || errno == EPERM;
}

bool keepModuleLoaded() noexcept {
  Dl_info info;
  void* extra = nullptr;
  if (dladdr1(reinterpret_cast<void*>(&keepModuleLoaded), &info, &extra, RTLD_DL_LINKMAP) == 0) return false;
  const char* const name = static_cast<const link_map*>(extra)->l_name;
  // Only the program itself has no name, and it is never unloaded.
  if (!*name) return true;
  void* const module = dlopen(name, RTLD_NOW | RTLD_NOLOAD | RTLD_NODELETE);
  if (!module) return false;
  dlclose(module);
  return true;
}

}  // namespace quiltor
