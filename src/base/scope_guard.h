#pragma once

#include <utility>

namespace quiltor {

// Runs an action when the scope ends, however it ends. The action must not throw.
template <class Action>
class [[nodiscard]] ScopeGuard {
 public:
  explicit ScopeGuard(Action action) : action_(std::move(action)) {}
  ~ScopeGuard() { action_(); }
  ScopeGuard(const ScopeGuard&) = delete;
  ScopeGuard& operator=(const ScopeGuard&) = delete;

 private:
  Action action_;
};

}  // namespace quiltor
