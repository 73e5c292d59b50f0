#pragma once

#include <cstdlib>
#include <optional>
#include <string>
#include <utility>

#include "base/utf8_path.h"

namespace quiltor {

// For tests: gives an environment variable another value (UTF-8), or none, until the end of the scope. Not while other
// threads read the environment.
class EnvironmentOverride {
 public:
  EnvironmentOverride(std::string name, const std::optional<std::string>& value)
      : name_(std::move(name)), before_(valueOf(name_)) {
    set(value);
  }
  ~EnvironmentOverride() { set(before_); }
  EnvironmentOverride(const EnvironmentOverride&) = delete;
  EnvironmentOverride& operator=(const EnvironmentOverride&) = delete;

  // What a variable holds now (UTF-8).
  static std::optional<std::string> valueOf(const std::string& name) {
#ifdef _WIN32
    const wchar_t* const value = _wgetenv(pathFromUtf8(name).c_str());
    return value ? std::optional(utf8FromPath(value)) : std::nullopt;
#else
    const char* const value = std::getenv(name.c_str());
    return value ? std::optional<std::string>(value) : std::nullopt;
#endif
  }

 private:
  void set(const std::optional<std::string>& value) {
#ifdef _WIN32
    // An empty value takes the variable away.
    _wputenv_s(pathFromUtf8(name_).c_str(), pathFromUtf8(value.value_or("")).c_str());
#else
    if (value) {
      setenv(name_.c_str(), value->c_str(), 1);
    } else {
      unsetenv(name_.c_str());
    }
#endif
  }

  const std::string name_;
  const std::optional<std::string> before_;
};

}  // namespace quiltor
