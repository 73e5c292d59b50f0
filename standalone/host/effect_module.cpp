#include "standalone/host/effect_module.h"

#include <system_error>

#include "base/utf8_path.h"
#include "standalone/host/services/shared_library.h"

namespace quiltor::standalone {
namespace {

constexpr const char* kEntryPointName = "EntryPointFunc";
#ifdef _WIN32
constexpr const char* kDefaultModule = "Quiltor.aex";
#else
constexpr const char* kDefaultModule = "Quiltor.so";
#endif

}  // namespace

EffectModule::EffectModule(const std::filesystem::path& path) : path_(path) {
  std::error_code error;
  if (!std::filesystem::is_regular_file(path, error)) {
    throw ModuleError("cannot load " + utf8FromPath(path) + ": no such file, expected an effect module");
  }
  std::string problem;
  void* library = loadLibrary(path, problem);
  if (!library) throw ModuleError("cannot load " + utf8FromPath(path) + ", expected an effect module: " + problem);
  void* symbol = exportedAddress(library, kEntryPointName);
  if (!symbol) {
    unloadLibrary(library);
    throw ModuleError("cannot use " + utf8FromPath(path) + ": it is a shared library but exports no " +
                      kEntryPointName);
  }
  entryPoint_ = reinterpret_cast<EntryPoint>(symbol);
}

std::filesystem::path defaultModulePath() { return programPath().parent_path() / kDefaultModule; }

}  // namespace quiltor::standalone
