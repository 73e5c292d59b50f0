#pragma once

#include <filesystem>
#include <stdexcept>
#include <string>

#include "hostapi/effect.h"

namespace quiltor::standalone {

// A module that cannot be used; what() is one line that names the path and what was expected.
class ModuleError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

using EntryPoint = PF_Err (*)(A_long selector, PF_InData*, PF_OutData*, PF_ParamDef** params, PF_EffectWorld* output,
                              void* extra);

// An effect's shared library. Deliberate: the code stays loaded after the object is gone, as in the hosts, because
// threads of the effect may still run.
class EffectModule {
 public:
  explicit EffectModule(const std::filesystem::path& path);

  [[nodiscard]] EntryPoint entryPoint() const { return entryPoint_; }
  [[nodiscard]] const std::filesystem::path& path() const { return path_; }

 private:
  std::filesystem::path path_;
  EntryPoint entryPoint_ = nullptr;
};

// `Quiltor.so` beside the running program.
[[nodiscard]] std::filesystem::path defaultModulePath();

}  // namespace quiltor::standalone
