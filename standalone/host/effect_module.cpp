#include "standalone/host/effect_module.h"

#include <dlfcn.h>

#include <system_error>

namespace quiltor::standalone {
namespace {

constexpr const char* kEntryPointName = "EntryPointFunc";

}  // namespace

EffectModule::EffectModule(const std::filesystem::path& path) : path_(path) {
  std::error_code error;
  if (!std::filesystem::is_regular_file(path, error)) {
    throw ModuleError("cannot load " + path.string() + ": no such file, expected an effect module");
  }
  // Without a slash the loader would search its own folders.
  void* library = dlopen(std::filesystem::absolute(path).c_str(), RTLD_NOW | RTLD_LOCAL);
  if (!library) throw ModuleError("cannot load " + path.string() + ", expected an effect module: " + dlerror());
  void* symbol = dlsym(library, kEntryPointName);
  if (!symbol) {
    dlclose(library);
    throw ModuleError("cannot use " + path.string() + ": it is a shared library but exports no " + kEntryPointName);
  }
  entryPoint_ = reinterpret_cast<EntryPoint>(symbol);
}

std::filesystem::path defaultModulePath() {
  std::error_code error;
  const std::filesystem::path program = std::filesystem::read_symlink("/proc/self/exe", error);
  return (error ? std::filesystem::path() : program.parent_path()) / "Quiltor.so";
}

}  // namespace quiltor::standalone
