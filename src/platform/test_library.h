#pragma once

#ifdef _WIN32
#include <windows.h>
// After the header that it needs.
#include <tlhelp32.h>
#else
#include <dlfcn.h>

#include <filesystem>
#endif

#include <cstddef>
#include <string>

namespace quiltor {

// For tests: a library that the program loads and lets go of as a host does with an effect.
class TestLibrary {
 public:
#ifdef _WIN32
  explicit TestLibrary(const std::string& path) : library_(LoadLibraryA(path.c_str())) {}
  bool unload() { return FreeLibrary(static_cast<HMODULE>(library_)) != 0; }
  void* symbol(const char* name) const {
    return reinterpret_cast<void*>(GetProcAddress(static_cast<HMODULE>(library_), name));
  }
  static bool isInMemory(const std::string& path) {
    return GetModuleHandleA(path.substr(path.find_last_of('/') + 1).c_str()) != nullptr;
  }
#else
  explicit TestLibrary(const std::string& path) : library_(dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL)) {}
  bool unload() { return dlclose(library_) == 0; }
  void* symbol(const char* name) const { return dlsym(library_, name); }
  static bool isInMemory(const std::string& path) {
    void* const library = dlopen(path.c_str(), RTLD_NOW | RTLD_NOLOAD);
    if (library) dlclose(library);
    return library != nullptr;
  }
#endif
  bool isLoaded() const { return library_ != nullptr; }

 private:
  void* library_;
};

// For tests: how many threads this process has.
inline size_t threadCount() {
  size_t count = 0;
#ifdef _WIN32
  const HANDLE snapshot = CreateToolhelp32Snapshot(TH32CS_SNAPTHREAD, 0);
  THREADENTRY32 thread{};
  thread.dwSize = sizeof thread;
  for (BOOL more = Thread32First(snapshot, &thread); more; more = Thread32Next(snapshot, &thread)) {
    count += thread.th32OwnerProcessID == GetCurrentProcessId();
  }
  CloseHandle(snapshot);
#else
  for ([[maybe_unused]] const auto& entry : std::filesystem::directory_iterator("/proc/self/task")) ++count;
#endif
  return count;
}

}  // namespace quiltor
