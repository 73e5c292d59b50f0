#pragma once

namespace quiltor::standalone {

// Until the end of the scope, what is printed to the C library's standard output goes nowhere: the reader of pattern
// files prints names there, between the lines that a command has to say.
class QuietOutput {
 public:
  QuietOutput();
  ~QuietOutput();
  QuietOutput(const QuietOutput&) = delete;
  QuietOutput& operator=(const QuietOutput&) = delete;

 private:
  int output_;
};

}  // namespace quiltor::standalone
