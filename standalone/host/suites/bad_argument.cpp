#include "standalone/host/suites/bad_argument.h"

#include <utility>

#include "standalone/host/services/host_state.h"

namespace quiltor::standalone {

A_Err badArgument(std::string text) {
  hostState().findings.record(FindingKind::BadArgument, std::move(text));
  return PF_Err_BAD_CALLBACK_PARAM;
}

}  // namespace quiltor::standalone
