#include "ui/script_runner.h"

#include <algorithm>

#include "base/scope_guard.h"
#include "host/application.h"
#include "host/suite_handler.h"

namespace quiltor {
namespace {

// The text in a handle of the host's. Empty without one, or when the host cannot lock it.
std::string textIn(const AEGP_MemorySuite1& memory, AEGP_MemHandle handle) {
  void* data = nullptr;
  if (!handle || memory.AEGP_LockMemHandle(handle, &data) != PF_Err_NONE || !data) return {};
  const ScopeGuard unlock([&] { memory.AEGP_UnlockMemHandle(handle); });
  AEGP_MemSize size = 0;
  if (memory.AEGP_GetMemHandleSize(handle, &size) != PF_Err_NONE) return {};
  const char* const text = static_cast<const char*>(data);
  return {text, std::find(text, text + size, '\0')};
}

}  // namespace

std::optional<std::string> runScript(const PF_InData& in, const std::string& script) {
  if (isVideoEditor(in)) return std::nullopt;
  SuiteHandler suites(in.pica_basicP);
  const AEGP_UtilitySuite5& scripting = suites.scripting();
  // Deliberate: before the script runs, so that no result is left that nobody can free.
  const AEGP_MemorySuite1& memory = suites.memory();
  const std::string text = script.substr(0, kMostScriptBytes);
  AEGP_MemHandle result = nullptr;
  const A_Err code = scripting.AEGP_ExecuteScript(0, text.c_str(), 0, &result, nullptr);
  const ScopeGuard free([&] {
    if (result) memory.AEGP_FreeMemHandle(result);
  });
  if (code != PF_Err_NONE) return std::nullopt;
  return textIn(memory, result);
}

}  // namespace quiltor
