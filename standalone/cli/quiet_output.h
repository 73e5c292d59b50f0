#pragma once

#include "platform/redirected_output.h"

namespace quiltor::standalone {

// Until the end of the scope, what is printed to the C library's standard output goes nowhere: the reader of pattern
// files prints names there, between the lines that a command has to say.
class QuietOutput {
 private:
  RedirectedOutput nowhere_{kNullDevice};
};

}  // namespace quiltor::standalone
