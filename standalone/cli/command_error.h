#pragma once

#include <stdexcept>

namespace quiltor::standalone {

// What ends a command. what() is one line for the person who typed it: what was wrong, where, what was expected.

// The command was typed wrongly: exit status 2.
class UsageError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

// The command was right and could not be carried out: exit status 1.
class CommandFailure : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

}  // namespace quiltor::standalone
