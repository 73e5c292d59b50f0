#include <dlfcn.h>

#include <system_error>

#include "standalone/host/services/shared_library.h"

namespace quiltor::standalone {

void* loadLibrary(const std::filesystem::path& path, std::string& problem) {
  // Without a slash the loader would search its own folders.
  void* library = dlopen(std::filesystem::absolute(path).c_str(), RTLD_NOW | RTLD_LOCAL);
  if (!library) problem = dlerror();
  return library;
}

void unloadLibrary(void* library) { dlclose(library); }

void* exportedAddress(void* library, const char* name) { return dlsym(library, name); }

std::filesystem::path programPath() {
  std::error_code error;
  return std::filesystem::read_symlink("/proc/self/exe", error);
}

}  // namespace quiltor::standalone
