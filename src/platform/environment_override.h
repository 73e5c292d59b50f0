#pragma once

#include <cstdlib>
#include <optional>
#include <string>
#include <utility>

namespace quiltor {

// For tests: gives an environment variable another value, or none, until the end of the scope. Not while other threads
// read the environment.
class EnvironmentOverride {
 public:
  EnvironmentOverride(std::string name, const std::optional<std::string>& value) : name_(std::move(name)) {
    if (const char* before = std::getenv(name_.c_str())) before_ = before;
    set(value);
  }
  ~EnvironmentOverride() { set(before_); }
  EnvironmentOverride(const EnvironmentOverride&) = delete;
  EnvironmentOverride& operator=(const EnvironmentOverride&) = delete;

 private:
  void set(const std::optional<std::string>& value) {
#ifdef _WIN32
    // An empty value takes the variable away.
    _putenv_s(name_.c_str(), value.value_or("").c_str());
#else
    if (value) {
      setenv(name_.c_str(), value->c_str(), 1);
    } else {
      unsetenv(name_.c_str());
    }
#endif
  }

  std::string name_;
  std::optional<std::string> before_;
};

}  // namespace quiltor
