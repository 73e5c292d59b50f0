#pragma once

#include <stdexcept>

namespace quiltor::standalone {

// A step that cannot be read or done. what() is one line: what was wrong and what was expected, without the place.
class AutomationError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

}  // namespace quiltor::standalone
