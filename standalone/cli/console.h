#pragma once

#include <ostream>

namespace quiltor::standalone {

// Where a command speaks: what was asked for goes to `out`, complaints and progress to `err`.
struct Console {
  std::ostream& out;
  std::ostream& err;
  bool terminal = false;  // somebody watches `err`
};

}  // namespace quiltor::standalone
