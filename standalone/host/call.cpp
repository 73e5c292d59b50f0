#include "standalone/host/call.h"

#include <algorithm>
#include <iterator>

#include "hostapi/selector_names.h"

namespace quiltor::standalone {

std::string CallResult::message() const {
  return {std::begin(out.return_msg), std::find(std::begin(out.return_msg), std::end(out.return_msg) - 1, '\0')};
}

std::string selectorName(A_long selector) {
  static_assert(kSelectorNameCount == PF_Cmd_GET_FLATTENED_SEQUENCE_DATA + 1);
  if (selector < 0 || selector >= kSelectorNameCount) return "selector " + std::to_string(selector);
  return kSelectorNames[selector];
}

}  // namespace quiltor::standalone
