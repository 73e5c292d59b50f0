#pragma once

#include <string>
#include <utility>
#include <vector>

namespace quiltor {

// Until the end of the scope, those modules of this process that call a function of a system's library by this name,
// or the one module among them, call another in its place. That one must behave like it.
class ImportHook {
 public:
  ImportHook(const std::string& function, void* replacement, void* onlyModule = nullptr);
  ~ImportHook();
  ImportHook(const ImportHook&) = delete;
  ImportHook& operator=(const ImportHook&) = delete;

  [[nodiscard]] bool any() const { return !places_.empty(); }

 private:
  // Where the module keeps the function's address, and what stood there.
  std::vector<std::pair<void**, void*>> places_;
};

// What a hook stands in front of: the system's own function, whatever is hooked.
void* systemFunction(const char* name);
template <class Function>
Function systemFunction(const char* name) {
  return reinterpret_cast<Function>(systemFunction(name));
}

}  // namespace quiltor
